#pragma once
// Typed numbers into the four-decimal fixed-point type, as the axis tools read their boxes:
// leniently, then rounded to four decimals with halves to the even neighbour.
#include "core/Currency.h"

#include <string_view>

namespace korval {

// Beyond the type's range (or infinite) the value saturates at the nearest end, so no typed
// text can fail the conversion.
Currency ToFixedPoint(double value);

// "0.00004" -> 0, "0.00015" -> 0.0002, "1,5" -> 1, "abc" -> 0.
Currency FixedPointFromText(std::string_view text);

} // namespace korval
