#include "AxisMatch.h"

#include "LimitList.h"

namespace korval {

AxisMatch MatchAxisChoice(int storedMake, int storedMotor, MotorMake shownMake, int controllerMotor,
                          int controllerLimit) {
    const auto stored = MotorMakeFromRow(storedMake);
    const auto make = stored && storedMotor == controllerMotor
                          ? *stored
                          : MakeForMotorSetting(controllerMotor).value_or(shownMake);
    return {make, controllerMotor, LimitValueToListIndex(controllerLimit)};
}

} // namespace korval
