#pragma once
// The multi-function input word in words.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoMultiFunctionInputs final : public InfoPanel {
public:
    FrmKdxInfoMultiFunctionInputs()
        : InfoPanel("FrmKdxInfoMultiFunctionInputs", "KDX Info - Multifunction User Inputs",
                    {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.multifunctionInputs.text);
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetMultifunctionUserInputs(Box(0));
    }
};

} // namespace korval
