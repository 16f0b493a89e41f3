#include "PositionReading.h"

#include "QuickMoveUnits.h"

#include "core/Numbers.h"

#include <charconv>
#include <cmath>

namespace korval {

PositionReading ReadPosition(std::string_view reply) {
    if (reply.empty()) {
        return {};
    }
    std::int64_t steps = 0;
    const auto* end = reply.data() + reply.size();
    const auto [at, error] = std::from_chars(reply.data(), end, steps);
    if (error != std::errc() || at != end) {
        return {PositionReading::Kind::Refused, 0};
    }
    return {PositionReading::Kind::Steps, steps};
}

std::string PositionInUnits(std::int64_t steps, std::string_view advStep) {
    const double units = static_cast<double>(steps) * BoxValue(advStep);
    if (BoxValue(advStep) == 0 || !std::isfinite(units)) {
        return {};
    }
    // Seven decimals, as the QuickMove windows write units; no group separators.
    return NumToText(BoxValue(FormatUnits(units)));
}

} // namespace korval
