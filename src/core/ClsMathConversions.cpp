#include "ClsMathConversions.h"

#include <algorithm>

namespace korval {

std::string ClsMathConversions::NumToBin(std::int64_t value, int width) {
    std::string bits;
    for (auto v = static_cast<std::uint64_t>(std::max<std::int64_t>(value, 0)); v != 0; v >>= 1) {
        bits.insert(bits.begin(), static_cast<char>('0' + (v & 1)));
    }
    if (static_cast<int>(bits.size()) < width) {
        bits.insert(0, static_cast<std::size_t>(width) - bits.size(), '0');
    }
    return bits;
}

std::string ClsMathConversions::BitsLowFirst(std::int64_t value, int width) {
    auto bits = NumToBin(value, width);
    std::reverse(bits.begin(), bits.end());
    return bits;
}

} // namespace korval
