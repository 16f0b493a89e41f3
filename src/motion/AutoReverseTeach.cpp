#include "AutoReverseTeach.h"

namespace korval {

namespace {

std::string& positionBox(AutoReverseSettings& s, TeachFrame frame) {
    return frame == TeachFrame::Home ? s.TxtHomePosition : s.TxtMovePosition;
}

} // namespace

void StartTeachJog(AutoReverseGenerator& generator, ClsJog& jog, TeachFrame frame, bool positive) {
    auto& s = generator.settings;
    const bool home = frame == TeachFrame::Home;
    const auto speed = TeachJogSpeed(home ? s.TxtHomeSpeed : s.TxtMoveSpeed,
                                     home ? s.CmbVelocityStyleHome : s.CmbVelocityStyleMove);
    if (speed) {
        if (positive) {
            jog.PositiveJog(s.CurrentMotor, *speed);
        } else {
            jog.NegativeJog(s.CurrentMotor, *speed);
        }
    }
    auto& box = positionBox(s, frame);
    box = AutoReverseGenerator::FormatPosition(box);
}

void EndTeachJog(AutoReverseGenerator& generator, ClsJog& jog, AutoReverseController& kdx,
                 TeachFrame frame) {
    jog.StopJog();
    auto& s = generator.settings;
    if (kdx.Visible()) {
        positionBox(s, frame) =
            AutoReverseGenerator::FormatPosition(kdx.GetCurrentMotorPosition(s.CurrentMotor));
    }
    if (frame == TeachFrame::Home) {
        generator.UpDateHome();
    } else {
        generator.UpDateMove();
    }
}

} // namespace korval
