#include "ClsMathConversions.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace korval {

namespace {

// The binary digits of a whole, non-negative number, exactly, however large.
std::string binaryDigits(double whole) {
    std::string bits;
    int exponent = 0;
    std::frexp(whole, &exponent);
    // Up to 64 bits the number is an integer type's; above, its 53 bits of precision are
    // followed by zeros.
    const int tail = std::max(exponent - 64, 0);
    for (auto v = static_cast<std::uint64_t>(std::ldexp(whole, -tail)); v != 0; v >>= 1) {
        bits.push_back(static_cast<char>('0' + (v & 1)));
    }
    std::reverse(bits.begin(), bits.end());
    bits.append(static_cast<std::size_t>(tail), '0');
    return bits;
}

} // namespace

std::string ClsMathConversions::NumToBin(double value, int width) {
    const double whole = std::isnan(value) ? 0.0 : Round(value);
    const double magnitude = std::min(std::fabs(whole), std::numeric_limits<double>::max());
    auto bits = binaryDigits(magnitude);
    if (static_cast<int>(bits.size()) < width) {
        bits.insert(0, static_cast<std::size_t>(width) - bits.size(), '0');
    }
    return whole < 0 ? "-" + bits : bits;
}

std::string ClsMathConversions::BitsLowFirst(double value, int width) {
    auto bits = NumToBin(value, width);
    std::reverse(bits.begin(), bits.end());
    return bits;
}

} // namespace korval
