#pragma once
// The controller's firmware version, date and mode.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoProcessor final : public InfoPanel {
public:
    FrmKdxInfoProcessor() : InfoPanel("FrmKdxInfoProcessor", "KDX Info - Processor", {InfoBox}) {}
    void ShowScan(const DiagnosticBoxes& scan) override { Box(0)->SetText(scan.processor.text); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override { diagnostic.GetProcessor(Box(0)); }
};

} // namespace korval
