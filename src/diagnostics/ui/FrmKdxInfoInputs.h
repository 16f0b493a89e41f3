#pragma once
// The jog buttons' and user inputs' states.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoInputs final : public InfoPanel {
public:
    FrmKdxInfoInputs() : InfoPanel("FrmKdxInfoInputs", "KDX Info - User Inputs", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override { Box(0)->SetText(scan.userInputs.text); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetUserInputStates(Box(0));
    }
};

} // namespace korval
