#include "ClsJog.h"

#include "AutoReverseLists.h"

#include "core/Numbers.h"

namespace korval {

void ClsJog::NegativeJog(std::int32_t motor, std::int32_t speed, const KdxSink* target) {
    if (const auto jog = kdx_.Table().JogNegative) {
        jog(motor, speed, target);
    }
}

void ClsJog::PositiveJog(std::int32_t motor, std::int32_t speed, const KdxSink* target) {
    if (const auto jog = kdx_.Table().JogPositive) {
        jog(motor, speed, target);
    }
}

std::int32_t ClsJog::StopJog() {
    return kdx_.StopProgram();
}

void ClsJog::KillJog() {
    if (const auto kill = kdx_.Table().KillKdxProgram) {
        kill();
    }
}

std::int32_t JogSpeed(std::string_view velocityText) {
    return ToInt32(Val(velocityText)).value_or(0);
}

std::optional<std::int32_t> TeachJogSpeed(std::string_view speedText, int velocityStyle) {
    if (velocityStyle == StepsPerSecond) {
        return JogSpeed(speedText);
    }
    if (const int code = AnalogRangeCode(velocityStyle); code != 0) {
        return -code;
    }
    return std::nullopt;
}

} // namespace korval
