#pragma once
#include <cstdint>
#include <string>

namespace korval {

class ClsMathConversions {
public:
    // Binary digits of the value, most significant first, padded with leading zeros to at
    // least `width` characters: (5, 8) -> "00000101", (256, 8) -> "100000000". A negative
    // value has no bits to show and gives all zeros.
    static std::string NumToBin(std::int64_t value, int width);

    // NumToBin reversed, so that character 1 is bit 0, as every controller word is read:
    // (129, 8) -> "10000001", (1, 8) -> "10000000".
    static std::string BitsLowFirst(std::int64_t value, int width);
};

} // namespace korval
