#pragma once
// The complete diagnostic: every panel's queries in one run, the progress as it goes (in the
// text and on a bar), then the report in place of the progress, which the user can save. The
// main window's Stop button ends a scan between two steps.
#include "QtBusyPointer.h"

#include "core/ui/FormBase.h"
#include "diagnostics/CompleteDiagnostic.h"

#include <string>

class QPlainTextEdit;
class QProgressBar;

namespace korval {

class PictureButton;

class FrmKdxInfoDiagnostic final : public FormBase {
public:
    FrmKdxInfoDiagnostic();

    // The scan, as pressing PicRefresh runs it; false when another scan has the line.
    bool PicRefresh_MouseDown();
    void PicSave_MouseDown();

    // What TxtInfo shows, byte for byte: the report, or the progress of a scan that stopped.
    const std::string& Text() const { return text_; }
    QPlainTextEdit* TxtInfo() const { return info_; }
    QProgressBar* Progress() const { return bar_; }

    void PrepareForSave() override;

private:
    void setText(const std::string& text);
    void append(const std::string& added);
    void showInPanels(const DiagnosticBoxes& scan);

    QPlainTextEdit* info_;
    QProgressBar* bar_;
    PictureButton* refresh_;
    PictureButton* save_;
    std::string text_;
    QtBusyPointer pointer_;
    ClsKdxDiagnostic diagnostic_;
};

} // namespace korval
