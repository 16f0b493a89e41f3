#pragma once
// Each motor's setting and limit setting.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoAxis final : public InfoPanel {
public:
    FrmKdxInfoAxis() : InfoPanel("FrmKdxInfoAxis", "KDX Info - Axis", WithAxes({})) {}
    void ShowScan(const DiagnosticBoxes& scan) override { ShowAxes(0, scan.axis); }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override { diagnostic.GetAxisSettings(Axes(0)); }
};

} // namespace korval
