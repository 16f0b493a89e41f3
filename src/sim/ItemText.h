#pragma once
// Strict readings of the parts of a controller item: plain decimals within a range, and the
// words whose number is a motor followed by "M".
#include <string>
#include <string_view>

namespace korval::sim {

bool IsDigit(char c);
// "12" -> 12 within [low, high]; anything else, a sign included, fails.
bool ReadNumber(std::string_view text, long low, long high, long& out);
// As ReadNumber, with an optional leading "-".
bool ReadSignedNumber(std::string_view text, long low, long high, long& out);
// "getM2M" read with the word "getM": motor 2 and the text after the "M", here "".
bool ReadMotorItem(const std::string& text, std::string_view word, int& motor, std::string& arg);
// True for "S", "IA", "getM" and the other words that a motor number and "M" follow.
bool TakesMotorNumber(std::string_view word);
// 1..6 or two digits "ab" with a 1..5 and b 1..(6 - a): the analog speed ranges.
bool ValidAnalogRange(long range);

} // namespace korval::sim
