#pragma once
// The over-travel and the backlash settings, both read from the one "O," reply.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoOTravelBacklash final : public InfoPanel {
public:
    FrmKdxInfoOTravelBacklash()
        : InfoPanel("FrmKdxInfoOTravelBacklash", "KDX Info - Overtravel / Backlash",
                    {{"TxtOverTravel", "FrameOverTravel", "Overtravel"},
                     {"TxtBacklash", "FrameBacklash", "Backlash"}}) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.overTravel.text);
        Box(1)->SetText(scan.backlash.text);
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        diagnostic.GetOverTravel(Box(0));
        diagnostic.GetBacklash(Box(1));
    }
};

} // namespace korval
