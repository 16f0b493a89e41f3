#include "FrmKdxInfoDiagnostic.h"

#include "InfoPanel.h"
#include "ScanLine.h"

#include "core/qt/Latin1.h"
#include "core/ui/HourGlass.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"
#include "diagnostics/CompleteDiagnostic.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QVBoxLayout>

namespace korval {

namespace {

constexpr double PressPause = 0.25;
const char* const SaveTitle = "Save KDX Diagnostic to File";

QString shown(const std::string& text) {
    auto q = Latin1(text);
    q.replace("\r\n", "\n");
    q.replace('\r', '\n');
    return q;
}

} // namespace

FrmKdxInfoDiagnostic::FrmKdxInfoDiagnostic()
    : FormBase("FrmKdxInfoDiagnostic", "KDX Info - Complete Diagnostic"),
      diagnostic_(App().kdx, App().delay, App().commands.AsFormatter(), &pointer_,
                  &App().replyTiming) {
    auto* frame = new QGroupBox(this);
    frame->setObjectName("FrameInfo");
    info_ = new QPlainTextEdit(frame);
    info_->setObjectName("TxtInfo");
    info_->setReadOnly(true);
    info_->setLineWrapMode(QPlainTextEdit::NoWrap);
    info_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont)); // the report's columns
    (new QVBoxLayout(frame))->addWidget(info_);

    bar_ = new QProgressBar(this);
    bar_->setObjectName("PrgScan");
    bar_->setTextVisible(true);
    bar_->setFormat("");
    bar_->setValue(0);
    refresh_ = new PictureButton("PicRefresh", Symbol::Recover, this);
    refresh_->setToolTip("Run the complete diagnostic");
    save_ = new PictureButton("PicSave", Symbol::SaveScript, this);
    save_->setToolTip("Save the report to a file");
    auto* row = new QHBoxLayout;
    row->addWidget(bar_, 1);
    row->addWidget(refresh_);
    row->addWidget(save_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame, 1);
    layout->addLayout(row);
    resize(640, 560);
    connect(refresh_, &PictureButton::pressed, this, [this] { PicRefresh_MouseDown(); });
    connect(save_, &PictureButton::pressed, this, [this] { PicSave_MouseDown(); });
}

bool FrmKdxInfoDiagnostic::PicRefresh_MouseDown() {
    if (ScanLine::Busy()) {
        return false;
    }
    const ScanLine line;
    auto& app = App();
    refresh_->setEnabled(false);
    save_->setEnabled(false);
    refresh_->showDown();
    app.delay.TimeDelay(PressPause);
    setText("");
    bar_->setValue(0);

    bool stopped = false;
    const int subscription = app.mdi->Stopped.subscribe([&stopped] { stopped = true; });
    ScanOptions options;
    options.progress = [this](const std::string& added) { append(added); };
    options.pointer = &pointer_;
    // A closed window ends its scan too: nobody is left to read the report.
    options.stopRequested = [this, &stopped] { return stopped || !IsShown(); };
    options.stepDone = [this](int done, int count) {
        bar_->setMaximum(count);
        bar_->setValue(done);
    };
    DiagnosticBoxes scan;
    const auto result = RunCompleteDiagnostic(diagnostic_, scan, options);
    app.mdi->Stopped.unsubscribe(subscription);
    // A stopped scan leaves its progress in view; a dead line still gives the report of what
    // was read, marked as incomplete.
    if (!result.stopped) {
        setText(result.report);
        showInPanels(scan);
    }
    refresh_->showUp();
    refresh_->setEnabled(true);
    save_->setEnabled(true);
    return true;
}

void FrmKdxInfoDiagnostic::PicSave_MouseDown() {
    auto& app = App();
    save_->showDown();
    const auto chosen =
        app.prompts.SaveFile({SaveTitle, "Text Files (*.txt)|*.txt|", "", "KDX Diagnostic"});
    if (!chosen || chosen->empty()) {
        return;
    }
    std::string problem;
    {
        HourGlass busy;
        problem = SaveDiagnosticReport(*DiagnosticReportFileName(*chosen), text_);
    }
    if (!problem.empty()) {
        app.prompts.Message("The diagnostic was not saved: " + problem, SaveTitle,
                            Prompts::Icon::Critical, Prompts::Buttons::Ok);
    }
}

void FrmKdxInfoDiagnostic::PrepareForSave() {
    setText("");
}

void FrmKdxInfoDiagnostic::setText(const std::string& text) {
    text_ = text;
    info_->setPlainText(shown(text));
    info_->moveCursor(QTextCursor::End);
}

void FrmKdxInfoDiagnostic::append(const std::string& added) {
    text_ += added;
    // The caret stays at the end, so the progress stays in view.
    info_->moveCursor(QTextCursor::End);
    info_->insertPlainText(shown(added));
    info_->verticalScrollBar()->setValue(info_->verticalScrollBar()->maximum());
    auto line = added;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
        line.pop_back();
    }
    bar_->setFormat(Latin1(line));
}

void FrmKdxInfoDiagnostic::showInPanels(const DiagnosticBoxes& scan) {
    for (auto* form : App().forms) {
        if (auto* panel = dynamic_cast<InfoPanel*>(form)) {
            panel->ShowScan(scan);
        }
    }
}

} // namespace korval
