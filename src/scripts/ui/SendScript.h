#pragma once
// Sends a script to the controller with its progress in view, for the editor's test and for
// File > Transfer.
#include "scripts/PacedSend.h"

#include <string>

namespace korval {

// Whether the controller's program memory can hold the script; when it cannot, the user is
// told how large it is and how much the controller holds.
bool ScriptFits(const std::string& text, const std::string& title);

// Whether a script is on its way: one goes at a time, and nothing else may start meanwhile.
bool SendingScript();

// Sends the script a piece at a time with a progress window: bytes sent of all, the time left
// at the line's rate, and a Cancel; the main window's Stop ends it too. True when all of it
// went.
bool SendScript(const std::string& text, const std::string& title);

} // namespace korval
