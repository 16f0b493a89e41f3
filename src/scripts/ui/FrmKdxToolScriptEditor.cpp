#include "FrmKdxToolScriptEditor.h"

#include "CodeEditor.h"
#include "FrmMsgBoxCodeFormat.h"

#include "SendScript.h"

#include "core/ClsReadWriteFile.h"
#include "core/RunAside.h"
#include "core/qt/Latin1.h"
#include "core/ui/HourGlass.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/PictureButton.h"
#include "core/ui/PreviewPanel.h"
#include "scripts/ScriptText.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTextCursor>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace korval {

namespace {

const char* const ScriptFilter = "Text Files (*.txt)|*.txt|";
const char* const Caption = "Script Editor";
// Characters put into the editor between two rounds of the window's events.
constexpr qsizetype SliceChars = 64 * 1024;

// The program's CR LF text as the editor shows it, and back.
QString shownText(const std::string& text) {
    auto shown = Latin1(text);
    shown.replace("\r\n", "\n");
    return shown;
}

std::string keptText(QString shown) {
    return Latin1(shown.replace('\n', "\r\n"));
}

} // namespace

// While a long text is made or put in, nothing may change it or start on it.
class FrmKdxToolScriptEditor::Held {
public:
    explicit Held(FrmKdxToolScriptEditor& form)
        : editor_(form.editor_), buttons_{{{form.format_, false},
                                           {form.test_, false},
                                           {form.save_, false}}} {
        for (auto& [button, enabled] : buttons_) {
            enabled = button->isEnabled();
            button->setEnabled(false);
        }
        editor_->setReadOnly(true);
    }
    ~Held() {
        editor_->setReadOnly(false);
        for (const auto& [button, enabled] : buttons_) {
            button->setEnabled(enabled);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    CodeEditor* editor_;
    std::array<std::pair<PictureButton*, bool>, 3> buttons_;
};

FrmKdxToolScriptEditor::FrmKdxToolScriptEditor() : FormBase("FrmKdxToolScriptEditor", Caption) {
    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout();
    format_ = new PictureButton("PicCodeFormatButton", Symbol::CodeFormat, this);
    format_->setToolTip("Format the script");
    test_ = new PictureButton("PicTestScript", Symbol::TestScript, this);
    test_->setToolTip("Send the script to the KDX and run it");
    save_ = new PictureButton("PicSaveScript", Symbol::SaveScript, this);
    save_->setToolTip("Save the script to a file");
    preview_ = new PictureButton("PicPreview", Symbol::Preview, this);
    preview_->setToolTip("Preview the script's motion on a virtual controller");
    for (auto* b : {format_, test_, save_, preview_}) {
        buttons->addWidget(b);
    }
    buttons->addStretch(1);
    editor_ = new CodeEditor("TxtEditor", this);
    layout->addLayout(buttons);
    layout->addWidget(editor_, 1);
    resize(640, 480);
    connect(format_, &PictureButton::pressed, this, [this] { PicCodeFormatButton_MouseDown(); });
    connect(test_, &PictureButton::pressed, this, [this] { PicTestScript_MouseDown(); });
    connect(save_, &PictureButton::pressed, this, [this] { PicSaveScript_MouseDown(); });
    connect(preview_, &PictureButton::pressed, this, [this] { PicPreview_MouseDown(); });
    AskFormat = [this]() -> std::optional<bool> {
        FrmMsgBoxCodeFormat dialog(this);
        if (dialog.exec() != QDialog::Accepted) {
            return std::nullopt;
        }
        return dialog.ShowComments();
    };
}

std::string FrmKdxToolScriptEditor::Text() const {
    return keptText(editor_->toPlainText());
}

void FrmKdxToolScriptEditor::SetText(const std::string& text) {
    const Held held(*this);
    showInSlices(shownText(text));
}

std::string FrmKdxToolScriptEditor::ShowWorked(const std::function<std::string()>& work) {
    const Held held(*this);
    auto [made, shown] = RunAside(App().wait, [work] {
        auto text = work();
        auto forEditor = shownText(text);
        return std::pair{std::move(text), std::move(forEditor)};
    });
    showInSlices(shown);
    return made;
}

void FrmKdxToolScriptEditor::showInSlices(const QString& shown) {
    editor_->setUndoRedoEnabled(false); // the editor keeps no undo, and a megabyte of it costs
    editor_->clear();
    QTextCursor end(editor_->document());
    for (qsizetype at = 0; at < shown.size();) {
        auto next = std::min(at + SliceChars, shown.size());
        if (const auto line = shown.indexOf('\n', next); line >= 0) {
            next = line + 1; // whole lines: a slice never splits one
        } else {
            next = shown.size();
        }
        end.movePosition(QTextCursor::End);
        end.insertText(shown.mid(at, next - at));
        at = next;
        if (at < shown.size()) {
            App().wait.runEvents(std::chrono::milliseconds(0));
        }
    }
    editor_->setUndoRedoEnabled(true);
    editor_->moveCursor(QTextCursor::Start);
}

void FrmKdxToolScriptEditor::enableButtons(bool on) {
    for (auto* b : {format_, test_, save_}) {
        b->setEnabled(on);
    }
}

void FrmKdxToolScriptEditor::PicCodeFormatButton_MouseDown() {
    format_->showDown();
    App().delay.TimeDelay(0.25);
    test_->setEnabled(false);
    save_->setEnabled(false);
    format_->showUp();
    if (const auto comments = AskFormat()) {
        FormatCode(*comments);
        App().prompts.Message("Format Wizard Complete", "Code Formatting Wizard",
                              Prompts::Icon::Information, Prompts::Buttons::Ok);
    }
    enableButtons(true);
}

void FrmKdxToolScriptEditor::FormatCode(bool withComments) {
    HourGlass busy;
    ShowWorked(
        [plain = editor_->toPlainText(), withComments, format = App().commands.AsFormatter()] {
            return Reformat(keptText(plain), withComments, format);
        });
}

void FrmKdxToolScriptEditor::PicTestScript_MouseDown() {
    auto& app = App();
    auto& kdx = app.kdx;
    if (SendingScript()) {
        return; // File > Transfer has the line
    }
    test_->showDown();
    enableButtons(false); // a second press would send into the middle of this one
    app.delay.TimeDelay(0.25);
    const auto test = RunAside(
        app.wait, [plain = editor_->toPlainText()] { return PlanScriptTest(keptText(plain)); });
    if (!ScriptFits(test.text, Caption)) {
        test_->showUp();
        enableButtons(true);
        return;
    }
    kdx.ReadReplyAndClearPort();
    kdx.SendCommandsToPort("C,");
    if (!SendScript(test.text, Caption)) {
        test_->showUp(); // stopped part way: nothing to wait for, nothing to run
        enableButtons(true);
        return;
    }
    switch (test.ending) {
    case ScriptTest::Ending::Store:
        kdx.WaitForCharacter("^", 1);
        kdx.ReadReplyAndClearPort();
        kdx.RunKdxProgramAndWaitForFinish(1);
        kdx.ReadReplyAndClearPort();
        break;
    case ScriptTest::Ending::Run:
        kdx.WaitForCharacter("^", 1);
        kdx.ReadReplyAndClearPort();
        break;
    case ScriptTest::Ending::Neither:
        kdx.RunKdxProgramAndWaitForFinish(1);
        break;
    }
    test_->showUp();
    enableButtons(true);
}

void FrmKdxToolScriptEditor::PicSaveScript_MouseDown() {
    auto& app = App();
    save_->showDown();
    app.delay.TimeDelay(0.25);
    save_->showUp();
    if (!app.PortIsOpen()) {
        return; // saving is tied to an open port, by design
    }
    const auto chosen =
        app.prompts.SaveFile({"Save KDX Script", ScriptFilter, app.folders.application, ""});
    if (!chosen || chosen->empty()) {
        return;
    }
    HourGlass busy;
    ClsReadWriteFile file;
    const bool saved = file.CreateOutputFile(TxtFileName(*chosen)) &&
                       file.WriteToOutputFile(Text()) && file.CloseOutputFile();
    if (!saved) {
        app.prompts.Message("The script was not saved: " + file.LastError(), "Save KDX Script",
                            Prompts::Icon::Critical, Prompts::Buttons::Ok);
    }
}

void FrmKdxToolScriptEditor::PicPreview_MouseDown() {
    preview_->showDown();
    App().delay.TimeDelay(0.25);
    preview_->showUp();
    const auto text = Text();
    // Sent as the test button sends it, to a controller that never leaves this program.
    ShowPreviewDialog(this, "Script Preview", [text](const sim::PreviewOptions& options) {
        sim::PreviewBench bench(options);
        bench.send("C,");
        bench.send(PlanScriptTest(text).text);
        return PreviewPanel::Shown{bench.follow(1), {}};
    });
}

} // namespace korval
