#pragma once
// The operating-mode word in words.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoOpMode final : public InfoPanel {
public:
    FrmKdxInfoOpMode() : InfoPanel("FrmKdxInfoOpMode", "KDX Info - Operating Mode", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.operatingMode.text);
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override { diagnostic.GetOperatingMode(Box(0)); }
};

} // namespace korval
