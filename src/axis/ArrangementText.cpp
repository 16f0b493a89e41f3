#include "ArrangementText.h"

#include "ClsKdxWizard.h"

namespace korval {

std::string ArrangementText(std::int32_t code) {
    switch (static_cast<MotorArrangement>(code)) {
    case MotorArrangement::BackwardsThree:
        return "a KDX-1 wired before a KDX-2";
    case MotorArrangement::MasterOnly:
        return "axis 1 certain, axis 2 in doubt";
    case MotorArrangement::One:
        return "one motor";
    case MotorArrangement::Two:
        return "two motors on one KDX";
    case MotorArrangement::Three:
        return "three motors, axes 1, 2 and 3";
    case MotorArrangement::Four:
        return "four motors";
    case MotorArrangement::OneDashOne:
        return "two KDX-1, axes 1 and 3";
    case MotorArrangement::Unknown:
        return "the driver cannot tell: asked axis by axis";
    case MotorArrangement::GuessThree:
        return "axes 1 and 3 certain, axis 2 in doubt";
    case MotorArrangement::GuessFour:
        return "axes 1, 3 and 4 certain, axis 2 in doubt";
    case MotorArrangement::GuessOneDashOneOrBackwardsThree:
        return "axes 1 and 3 certain, axis 4 in doubt";
    case MotorArrangement::GuessThreeOrFour:
        return "axes 1, 2 and 3 certain, axis 4 in doubt";
    case MotorArrangement::GuessUnknownCombo:
        return "axes 1 and 3 certain, axes 2 and 4 in doubt";
    }
    return {};
}

} // namespace korval
