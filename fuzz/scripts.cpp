// The script text and terminal rules on any text: what the terminal sends, what the editor
// shows and tests, and how a file is judged.
#include "formatter/CommandFormatter.h"
#include "scripts/ScriptText.h"
#include "scripts/TerminalSend.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace korval;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Formatter format = [](const std::string& t, int flag) {
        return formatCommands(t, flag == 1);
    };
    const auto plan = PlanTerminalSend(text);
    if (plan.toSend.find('\t') != std::string::npos) {
        std::abort(); // tabs never reach the controller
    }
    const auto editor = OpenForEdit(text, format);
    (void)Reformat(editor, true, format);
    (void)ForTransfer(text, format);
    (void)PlanScriptTest(editor);
    (void)TxtFileName(text);
    (void)ScriptFileProblem(text, "script.txt");
    (void)HasNonAscii(text);
    return 0;
}
