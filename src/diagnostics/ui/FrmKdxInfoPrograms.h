#pragma once
// The current program, its associate and the five listings. Listing a program selects it, so
// the refresh reads the current program first and selects it again at the end.
#include "InfoPanel.h"

namespace korval {

class FrmKdxInfoPrograms final : public InfoPanel {
public:
    FrmKdxInfoPrograms()
        : InfoPanel("FrmKdxInfoPrograms", "KDX Info - Programs",
                    {{"TxtProgramCurrent", "FrameProgramCurrent", "Current Program"},
                     {"TxtProgramCurrentAssociate", "FrameProgramCurrentAssociate",
                      "Current Program Associate"},
                     {"TxtProgram0", "FrameProgram0", "Program 0"},
                     {"TxtProgram1", "FrameProgram1", "Program 1"},
                     {"TxtProgram2", "FrameProgram2", "Program 2"},
                     {"TxtProgram3", "FrameProgram3", "Program 3"},
                     {"TxtProgram4", "FrameProgram4", "Program 4"}}) {}
    void ShowScan(const DiagnosticBoxes& scan) override {
        Box(0)->SetText(scan.programCurrent.text);
        Box(1)->SetText(scan.programCurrentAssociate.text);
        for (std::size_t n = 0; n < 5; ++n) {
            Box(2 + n)->SetText(scan.program[n].text);
        }
    }

protected:
    void RunQueries(ClsKdxDiagnostic& diagnostic) override {
        RefreshProgramsPanel(diagnostic,
                             {Box(0), Box(1), {Box(2), Box(3), Box(4), Box(5), Box(6)}});
    }
};

} // namespace korval
