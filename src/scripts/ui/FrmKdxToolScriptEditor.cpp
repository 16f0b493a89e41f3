#include "FrmKdxToolScriptEditor.h"

#include "CodeEditor.h"
#include "FrmMsgBoxCodeFormat.h"

#include "core/ClsReadWriteFile.h"
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
#include <QVBoxLayout>

namespace korval {

namespace {

const char* const ScriptFilter = "Text Files (*.txt)|*.txt|";

} // namespace

FrmKdxToolScriptEditor::FrmKdxToolScriptEditor()
    : FormBase("FrmKdxToolScriptEditor", "Script Editor") {
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
    return Latin1(editor_->toPlainText().replace('\n', "\r\n"));
}

void FrmKdxToolScriptEditor::SetText(const std::string& text) {
    auto shown = Latin1(text);
    shown.replace("\r\n", "\n");
    editor_->setPlainText(shown);
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
    SetText(Reformat(Text(), withComments, App().commands.AsFormatter()));
}

void FrmKdxToolScriptEditor::PicTestScript_MouseDown() {
    auto& app = App();
    auto& kdx = app.kdx;
    test_->showDown();
    format_->setEnabled(false);
    save_->setEnabled(false);
    app.delay.TimeDelay(0.25);
    kdx.ReadReplyAndClearPort();
    kdx.SendCommandsToPort("C,");
    const auto test = PlanScriptTest(Text());
    kdx.SendCommandsToPort(test.text);
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
