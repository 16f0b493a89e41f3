#pragma once
#include <string>

namespace korval {

class ClsMathConversions {
public:
    // Binary digits of the value rounded to a whole number, most significant first, read as a
    // decimal number and formatted to at least `width` digits with leading zeros: (5, 8) ->
    // "00000101", (256, 8) -> "100000000", (-3, 8) -> "-00000011". Every bit of a large value
    // is shown; an infinite one is taken as the largest finite value, NaN as 0.
    static std::string NumToBin(double value, int width);

    // NumToBin reversed, so that character 1 is bit 0, as every controller word is read:
    // (129, 8) -> "10000001", (1, 8) -> "10000000".
    static std::string BitsLowFirst(double value, int width);
};

} // namespace korval
