#pragma once
// The analog joystick's dead band, and each motor's primary and secondary speed spans.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoJoystickAnalog final : public InfoPanel {
public:
    FrmKdxInfoJoystickAnalog()
        : InfoPanel("FrmKdxInfoJoystickAnalog", "KDX Info - Joystick Analog",
                    WithAxes({{"TxtDeadband", "FrameDeadband", "Deadband"}})) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.deadband.text);
        ShowAxes(1, scan.joystickAnalog);
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetDeadBand(Box(0));
        diagnostic.GetJoystickAnalogSettings(Axes(1));
    }
};

} // namespace korval
