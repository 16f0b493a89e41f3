#pragma once
// What the script editor and the File menu do to script text between the file, the formatter,
// the editor and the controller.
#include "link/ClsKdxCommands.h"

#include <optional>
#include <string>

namespace korval {

// Formatter output as the editor shows it: CR LF line ends, two tabs after every comma and
// two tabs before every comment.
std::string ForEditor(const std::string& formatted);

// A script file read for the editor: CR LF to CR, formatted without comments, shown as above.
std::string OpenForEdit(const std::string& fileText, const Formatter& format);
// A script file read for sending: CR LF to CR, formatted without comments, CR line ends.
std::string ForTransfer(const std::string& fileText, const Formatter& format);

// The editor's text reformatted: a final CR added when missing, then formatted and shown.
std::string Reformat(std::string editorText, bool withComments, const Formatter& format);

// How a script is tried on the controller, by the end of its rewritten text.
struct ScriptTest {
    enum class Ending { Store, Run, Neither }; // "rsm", "R", anything else
    std::string text;                          // rewritten as the terminal rewrites
    Ending ending;
};
ScriptTest PlanScriptTest(const std::string& editorText);

// A chosen file name with every ".txt" removed and one ".txt" put at the end.
std::string TxtFileName(std::string name);

// Why a file cannot serve as a script; empty when it can.
std::string ScriptFileProblem(const std::optional<std::string>& bytes, const std::string& path);

// True when the text holds a byte the controller's language has no use for (outside ASCII).
bool HasNonAscii(const std::string& text);

} // namespace korval
