#pragma once
// How the axis tool brings its lists in line with what the controller holds, keeping the make
// the user chose last time where it still fits the controller's motor setting.
#include "MotorList.h"

#include <optional>

namespace korval {

struct AxisMatch {
    MotorMake make;
    int motorRow;                // the controller's motor setting, selected as it is
    std::optional<int> limitRow; // null: the limit list keeps its row
};

// `storedMake` and `storedMotor` are the rows kept in the settings file (0 for a key with no
// value); `shownMake` is the make the tool shows now, kept when the setting names none.
AxisMatch MatchAxisChoice(int storedMake, int storedMotor, MotorMake shownMake, int controllerMotor,
                          int controllerLimit);

} // namespace korval
