#pragma once
// The program's one way into the driver's jog: continuous motion of one motor until stopped.
// A speed above zero is steps per second; below zero it names an analog range by its code.
#include "link/ClsDriverKdx.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace korval {

class ClsJog {
public:
    explicit ClsJog(ClsDriverKdx& kdx) : kdx_(kdx) {}

    // `target` receives the position as text while the jog runs; none for no live position.
    void NegativeJog(std::int32_t motor, std::int32_t speed, const KdxSink* target = nullptr);
    void PositiveJog(std::int32_t motor, std::int32_t speed, const KdxSink* target = nullptr);
    std::int32_t StopJog(); // with deceleration; the driver's result, 0 when nothing went out
    void KillJog();         // at once

private:
    ClsDriverKdx& kdx_;
};

// A jog speed typed into a box: the leading number rounded to a whole step, halves to even
// (2.5 -> 2, 3.5 -> 4); 0 when there is none or it does not fit.
std::int32_t JogSpeed(std::string_view velocityText);

// The speed of a jog that teaches an AutoReverse position: the box's own speed for the steps
// style, minus the range's code for an analog range; none for a style outside the list.
std::optional<std::int32_t> TeachJogSpeed(std::string_view speedText, int velocityStyle);

} // namespace korval
