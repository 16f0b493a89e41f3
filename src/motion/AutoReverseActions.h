#pragma once
// What the tool's three buttons do with a generated program: try it, store it in the
// controller, or save it as a script file.
#include "AutoReverseController.h"
#include "AutoReverseGenerator.h"

#include "core/Prompts.h"

#include <optional>
#include <string>

namespace korval {

// Test: send, then run it and wait for its end. Store: send (it ends in "rsm"), then wait for
// the controller's "^". Nothing more goes out once the window has closed.
void SendAutoReverseProgram(AutoReverseController& kdx, RunSaveAction action,
                            const std::string& text);

// The save dialog, opening in the program's folder.
Prompts::FileDialog AutoReverseSaveDialog(const std::string& programFolder);

// Asks for a name and writes the file text to it, as "name.txt" however often the user typed
// ".txt". The path written; none when cancelled or when writing failed, which a message tells.
std::optional<std::string> SaveAutoReverseScript(Prompts& prompts, const std::string& programFolder,
                                                 const std::string& fileText);

} // namespace korval
