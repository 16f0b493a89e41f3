#pragma once
// Each motor's primary and secondary digital-joystick speeds.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoJoystickDigital final : public InfoPanel {
public:
    FrmKdxInfoJoystickDigital()
        : InfoPanel("FrmKdxInfoJoystickDigital", "KDX Info - Joystick Digital", WithAxes({})) {}
    void ShowScan(const DiagnosticBoxes& scan) override { ShowAxes(0, scan.joystickDigital); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetJoystickDigitalSettings(Axes(0));
    }
};

} // namespace korval
