#pragma once
// The limit switches' states.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoLimitStates final : public InfoPanel {
public:
    FrmKdxInfoLimitStates()
        : InfoPanel("FrmKdxInfoLimitStates", "KDX Info - Limit States", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override { Box(0)->SetText(scan.limitStates.text); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override { diagnostic.GetLimitStates(Box(0)); }
};

} // namespace korval
