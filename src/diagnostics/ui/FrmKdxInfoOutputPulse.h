#pragma once
// The output pulse width, and each motor's pulse-every-N-steps setting.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoOutputPulse final : public InfoPanel {
public:
    FrmKdxInfoOutputPulse()
        : InfoPanel("FrmKdxInfoOutputPulse", "KDX Info - Output Pulse",
                    WithAxes({{"TxtPulseWidth", "FramePulseWidth", "Pulse Width"}})) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.pulseWidth.text);
        ShowAxes(1, scan.outputPulse);
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetPulseWidth(Box(0));
        diagnostic.GetPulseEveryNumSteps(Axes(1));
    }
};

} // namespace korval
