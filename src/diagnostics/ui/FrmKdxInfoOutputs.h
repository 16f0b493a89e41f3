#pragma once
// The user outputs' states; an older controller has none to show.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoOutputs final : public InfoPanel {
public:
    FrmKdxInfoOutputs() : InfoPanel("FrmKdxInfoOutputs", "KDX Info - User Outputs", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override { Box(0)->SetText(scan.userOutputs.text); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetUserOutputStates(Box(0));
    }
};

} // namespace korval
