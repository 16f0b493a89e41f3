#pragma once
// A motor's position as the driver's read-out gives it, and how the program shows it in steps
// and in the user's own units.
#include <cstdint>
#include <string>
#include <string_view>

namespace korval {

struct PositionReading {
    enum class Kind {
        Steps,    // a position
        Refused,  // the controller has no such axis, or answered with something else
        NoAnswer, // nothing came back: a silent axis, a closed port
    };
    Kind kind = Kind::NoAnswer;
    std::int64_t steps = 0;
    bool operator==(const PositionReading&) const = default;
};

// "-1200" is a position; "" is no answer; anything else ("J", an error code) a refusal.
PositionReading ReadPosition(std::string_view reply);

// Steps through the advance per step, in plain decimal as a script reads it: 400 steps at
// "0.0254" give "10.16". Empty when the advance is none or 0.
std::string PositionInUnits(std::int64_t steps, std::string_view advStep);

} // namespace korval
