// The script text and terminal rules on any text: what the terminal sends and shows, what the
// editor shows and tests, and how a file is judged.
#include "formatter/CommandFormatter.h"
#include "scripts/ScriptText.h"
#include "scripts/TerminalSend.h"
#include "scripts/TerminalTranscript.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

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

    // The terminal's transcript of anything a controller may send, seen in two looks.
    const auto half = text.substr(0, size / 2);
    if (!std::string_view(text).ends_with(NewTerminalBytes(half, text))) {
        std::abort(); // what is new is always an end of the newer text
    }
    TerminalTranscript transcript(512, 64);
    transcript.Observe(half, "t");
    transcript.Sent(plan.toSend, "t");
    transcript.Observe(text, "t");
    for (const char c : transcript.Render({.sent = true, .times = true, .codes = true})) {
        const auto byte = static_cast<unsigned char>(c);
        if (c != '\n' && (byte < 0x20 || byte >= 0x7F)) {
            std::abort(); // with the codes shown, every byte is visible
        }
    }
    return 0;
}
