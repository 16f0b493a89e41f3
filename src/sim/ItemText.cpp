#include "sim/ItemText.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>

namespace korval::sim {

namespace {

constexpr std::string_view MotorWords[] = {"S",    "I",    "IA",    "H",     "getM", "getL", "getP",
                                           "getj", "getJ", "getjA", "getJA", "setM", "setL", "setP",
                                           "setj", "setJ", "setjA", "setJA", "getX"};

} // namespace

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool ReadNumber(std::string_view text, long low, long high, long& out) {
    if (text.empty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return false;
    }
    long v = 0;
    std::from_chars(text.data(), text.data() + text.size(), v);
    if (v < low || v > high) {
        return false;
    }
    out = v;
    return true;
}

bool ReadSignedNumber(std::string_view text, long low, long high, long& out) {
    const bool negative = !text.empty() && text[0] == '-';
    long v = 0;
    if (!ReadNumber(negative ? text.substr(1) : text, 0, std::max(std::labs(low), high), v)) {
        return false;
    }
    v = negative ? -v : v;
    if (v < low || v > high) {
        return false;
    }
    out = v;
    return true;
}

bool ReadMotorItem(const std::string& text, std::string_view word, int& motor, std::string& arg) {
    const std::size_t n = word.size();
    if (text.size() < n + 2 || text.compare(0, n, word) != 0 || !IsDigit(text[n])) {
        return false;
    }
    const auto m = text.find('M', n);
    if (m == std::string::npos) {
        return false;
    }
    long v = 0;
    if (!ReadNumber(std::string_view(text).substr(n, m - n), 0, 99, v)) {
        return false;
    }
    motor = static_cast<int>(v);
    arg = text.substr(m + 1);
    return true;
}

bool TakesMotorNumber(std::string_view word) {
    return std::find(std::begin(MotorWords), std::end(MotorWords), word) != std::end(MotorWords);
}

bool ValidAnalogRange(long range) {
    const long a = range / 10;
    const long b = range % 10;
    return (range >= 1 && range <= 6) || (a >= 1 && a <= 5 && b >= 1 && b <= 6 - a);
}

} // namespace korval::sim
