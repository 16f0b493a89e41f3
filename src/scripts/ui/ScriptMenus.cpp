#include "ScriptMenus.h"

#include "FrmKdxToolScriptEditor.h"
#include "FrmKdxToolTerminal.h"
#include "SendScript.h"

#include "core/ClsReadWriteFile.h"
#include "core/RunAside.h"
#include "core/ui/HourGlass.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "scripts/ScriptText.h"

#include <QApplication>
#include <QCheckBox>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace korval {

namespace {

const char* const ScriptFilter = "Text Files (*.txt)|*.txt|";

// The chosen script's text, or empty after a cancel or a file that cannot serve (the user
// has been told why).
std::optional<std::string> readScript(const std::string& title) {
    auto& app = App();
    const auto chosen = app.prompts.OpenFile({title, ScriptFilter, app.folders.application, ""});
    if (!chosen || chosen->empty()) {
        return std::nullopt;
    }
    const auto bytes = readWholeFile(*chosen);
    if (const auto problem = ScriptFileProblem(bytes, *chosen); !problem.empty()) {
        app.prompts.Message(problem, title, Prompts::Icon::Warning, Prompts::Buttons::Ok);
        return std::nullopt;
    }
    return bytes;
}

} // namespace

void OpenScriptForEditing() {
    const auto script = readScript("Open KDX Script for Editing");
    if (!script) {
        return;
    }
    std::string text;
    {
        HourGlass busy;
        auto* editor = App().Form<FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
        editor->ShowWindow();
        text = editor->ShowWorked([script = *script, format = App().commands.AsFormatter()] {
            return OpenForEdit(script, format);
        });
    }
    if (HasNonAscii(text)) {
        App().prompts.Message("The script holds characters outside plain ASCII. The KDX does not "
                              "understand them: check the commands before sending.",
                              "Open KDX Script for Editing", Prompts::Icon::Warning,
                              Prompts::Buttons::Ok);
    }
}

void TransferScript() {
    auto& app = App();
    if (!app.PortIsOpen() || SendingScript()) {
        return; // one script at a time
    }
    const auto script = readScript("Open and Transfer KDX Script");
    if (!script) {
        return;
    }
    const auto text = [&] {
        HourGlass busy;
        return RunAside(app.wait, [script = *script, format = app.commands.AsFormatter()] {
            return ForTransfer(script, format);
        });
    }();
    if (HasNonAscii(text)) {
        // Nothing goes half way: the controller would stop at the first byte it cannot read.
        app.prompts.Message("The script holds characters outside plain ASCII and was not sent. "
                            "Open it for editing to correct it.",
                            "Open and Transfer KDX Script", Prompts::Icon::Warning,
                            Prompts::Buttons::Ok);
        return;
    }
    const char* const title = "Open and Transfer KDX Script";
    if (ScriptFits(text, title)) {
        SendScript(text, title);
    }
}

void WireScriptMenus(MdiKorval& mdi) {
    auto* terminal = App().Form<FrmKdxToolTerminal>("FrmKdxToolTerminal");
    auto* editor = App().Form<FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
    mdi.SetHandler("MnuToolsTerminal", [terminal] {
        terminal->ShowWindow();
        terminal->SetActive(true);
    });
    mdi.SetHandler("MnuToolsScriptEditor", [editor] { editor->ShowWindow(); });
    App().TerminalText.subscribe(
        [terminal](const std::string& text) { terminal->ShowTerminal(text); });
    mdi.SetHandler("MnuFileOpenForEdit", [] { OpenScriptForEditing(); });
    mdi.SetHandler("MnuFileTransfer", [] { TransferScript(); });
    QObject::connect(mdi.Area(), &QMdiArea::subWindowActivated, terminal,
                     [terminal](QMdiSubWindow* active) {
                         terminal->SetActive(active != nullptr && active == terminal->SubWindow());
                     });
}

} // namespace korval
