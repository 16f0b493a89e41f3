#pragma once
// A setting of the AutoReverse tool given by the name of its control, as the command line and
// a bench script give it: "CmbHomeStyle=1", "TxtMovePosition=1000", "CurrentMotor=2".
#include "AutoReverseGenerator.h"

#include <string>
#include <string_view>

namespace korval {

struct SettingOutcome {
    bool applied = false;
    std::string problem; // why not, in words, when not applied
};

// Applies one setting as a user choosing it in the window would: a combo takes an index of its
// list and has the effects of its click, a text box takes its text and then its Enter, the motor
// takes 1 to 4. An unknown name, an index outside the list or a motor outside 1 to 4 changes
// nothing and says why.
SettingOutcome ApplyAutoReverseSetting(AutoReverseGenerator& generator, std::string_view name,
                                       std::string_view value);

// "NAME=VALUE" split at its first "=" and applied; text without "=" is refused.
SettingOutcome ApplyAutoReverseAssignment(AutoReverseGenerator& generator,
                                          std::string_view assignment);

} // namespace korval
