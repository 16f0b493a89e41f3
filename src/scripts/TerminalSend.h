#pragma once
// The terminal's sending rules: what goes to the controller for a typed text, and which change
// of on-line state the program makes first to stay in step with it.
#include <string>
#include <string_view>
#include <vector>

namespace korval {

class ClsDriverKdx;

enum class LinkAction { BringOnline, BringOffline };

struct TerminalSend {
    std::vector<LinkAction> actions; // in order, before the text is sent
    std::string toSend;
};

// Tabs deleted; "R," and "rsm," lose their comma; a line end right behind "R" or "rsm" goes.
std::string RewriteForSending(std::string text);

// The whole rule: the rewrite, then BringOnline for each of "E", "F", "G" found anywhere in the
// text and BringOffline for "Q", then the text with a CR added unless it holds an "R".
TerminalSend PlanTerminalSend(const std::string& typed);

// Typed text as the program keeps it: every line feed not already behind a carriage return
// becomes CR LF (a text box and a shell give bare line feeds).
std::string WithCrLf(std::string_view typed);

// Sends typed text as the terminal does: the plan's on-line changes in order, then its text.
void SendTerminalText(std::string_view typed, ClsDriverKdx& kdx);

} // namespace korval
