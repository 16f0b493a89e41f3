#include "AutoReverseActions.h"

#include "core/ClsReadWriteFile.h"
#include "scripts/ScriptText.h"

namespace korval {

void SendAutoReverseProgram(AutoReverseController& kdx, RunSaveAction action,
                            const std::string& text) {
    if (action == RunSaveAction::File) {
        return;
    }
    if (kdx.Visible()) {
        kdx.SendCommandsToPort(text);
    }
    if (!kdx.Visible()) {
        return;
    }
    if (action == RunSaveAction::Test) {
        kdx.RunKdxProgramAndWaitForFinish(1);
    } else {
        kdx.WaitForCharacter("^", 1);
    }
}

Prompts::FileDialog AutoReverseSaveDialog(const std::string& programFolder) {
    return {"Save KDX Script to File", "Text Files (*.txt)|*.txt|", programFolder, ""};
}

std::optional<std::string> SaveAutoReverseScript(Prompts& prompts, const std::string& programFolder,
                                                 const std::string& fileText) {
    const auto dialog = AutoReverseSaveDialog(programFolder);
    const auto chosen = prompts.SaveFile(dialog);
    if (!chosen || chosen->empty()) {
        return std::nullopt;
    }
    // The name alone is tidied: a folder may well have ".txt" in its own name.
    const auto slash = chosen->find_last_of('/') + 1;
    const auto path = chosen->substr(0, slash) + TxtFileName(chosen->substr(slash));
    ClsReadWriteFile file;
    if (file.CreateOutputFile(path) && file.WriteToOutputFile(fileText) && file.CloseOutputFile()) {
        return path;
    }
    prompts.Message("The script could not be saved as " + path + ".\r\n\r\n" + file.LastError(),
                    dialog.title, Prompts::Icon::Warning, Prompts::Buttons::Ok);
    return std::nullopt;
}

} // namespace korval
