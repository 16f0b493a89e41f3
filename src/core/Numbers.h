#pragma once
// The program's number rules: how typed and received text becomes a number, and how a
// number becomes text. Every window and every reply reader goes through these.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korval {

// Lenient parse: skips leading blanks (space, tab, CR, LF), takes an optional sign, digits, an
// optional decimal part and an optional exponent (E or D), and stops at the first other
// character. "1,000.0" is 1, "+12" is 12, "1+2" is 1, "" and "abc" are 0.
double Val(std::string_view text);

// True when the whole text, blanks around it allowed, is one number: an optional sign, digits
// that may carry thousands commas, an optional decimal part and an optional exponent.
// "1,000.5", " 12 " and "1e3" are numeric; "", "abc", "1+2" and "12 3" are not.
bool IsNumeric(std::string_view text);

// Round to a whole number, halves to the even neighbour: 2.5 -> 2, 3.5 -> 4, -2.5 -> -2.
double Round(double value);

// Round half to even into a 32-bit integer; empty when the result does not fit (or is NaN).
std::optional<std::int32_t> ToInt32(double value);

// Shortest decimal text with at most 15 significant digits, no group separators: 5 -> "5",
// 0.1 -> "0.1", -2.25 -> "-2.25", 1e15 -> "1E+15".
std::string NumToText(double value);

// As NumToText with a leading blank for a number that is not negative: 5 -> " 5", -5 -> "-5".
std::string Str(double value);

// Fixed decimals with thousands commas, halves away from zero, as the formats "##,##0.0" (1)
// and "##,##0.0000000" (7): FormatGrouped(12345.25, 1) -> "12,345.3".
std::string FormatGrouped(double value, int decimals);

// The shortest decimal form of a number, rounded to a fixed count of decimals. Rounding works
// on the decimal digits, not on the binary value, so 0.125 is a true half as the user typed it.
enum class Halves { ToEven, AwayFromZero };
struct FixedDigits {
    bool negative = false; // never set for a result that rounded to zero
    std::string integer;   // at least one digit
    std::string fraction;  // exactly `decimals` digits
};
FixedDigits RoundDecimal(double value, int decimals, Halves halves); // value must be finite

} // namespace korval
