#pragma once
// The analog input's value.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoAnalogInput final : public InfoPanel {
public:
    FrmKdxInfoAnalogInput()
        : InfoPanel("FrmKdxInfoAnalogInput", "KDX Info - Analog Input", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override { Box(0)->SetText(scan.analogInput.text); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override { diagnostic.GetAnalogInput(Box(0)); }
};

} // namespace korval
