#include "FixedPointText.h"

#include "core/Numbers.h"

#include <cmath>
#include <limits>

namespace korval {

Currency ToFixedPoint(double value) {
    if (std::isnan(value)) {
        return {};
    }
    if (const auto fixed = Currency::fromDouble(value)) {
        return *fixed;
    }
    return Currency::fromUnits(value < 0 ? std::numeric_limits<std::int64_t>::min()
                                         : std::numeric_limits<std::int64_t>::max());
}

Currency FixedPointFromText(std::string_view text) {
    return ToFixedPoint(Val(text));
}

} // namespace korval
