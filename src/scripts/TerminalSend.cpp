#include "TerminalSend.h"

#include "core/Text.h"
#include "link/ClsDriverKdx.h"

namespace korval {

std::string RewriteForSending(std::string text) {
    std::erase(text, '\t');
    ReplaceAll(text, "R,", "R");
    ReplaceAll(text, "R\r\n", "R\r");
    ReplaceAll(text, "R\r", "R");
    ReplaceAll(text, "rsm,", "rsm");
    ReplaceAll(text, "rsm\r\n", "rsm\r");
    ReplaceAll(text, "rsm\r", "rsm");
    return text;
}

TerminalSend PlanTerminalSend(const std::string& typed) {
    TerminalSend plan;
    auto text = RewriteForSending(typed);
    // Each letter is looked for anywhere, comments included, each test by itself.
    for (const char letter : {'E', 'F', 'G'}) {
        if (text.find(letter) != std::string::npos) {
            plan.actions.push_back(LinkAction::BringOnline);
        }
    }
    if (text.find('Q') != std::string::npos) {
        plan.actions.push_back(LinkAction::BringOffline);
    }
    plan.toSend = text.find('R') == std::string::npos ? text + "\r" : text;
    return plan;
}

std::string WithCrLf(std::string_view typed) {
    std::string text;
    text.reserve(typed.size() + typed.size() / 16);
    for (std::size_t i = 0; i < typed.size(); ++i) {
        if (typed[i] == '\n' && (i == 0 || typed[i - 1] != '\r')) {
            text += '\r';
        }
        text += typed[i];
    }
    return text;
}

void SendTerminalText(std::string_view typed, ClsDriverKdx& kdx) {
    const auto plan = PlanTerminalSend(WithCrLf(typed));
    for (const auto action : plan.actions) {
        action == LinkAction::BringOnline ? kdx.BringOnline() : kdx.BringOffline();
    }
    kdx.SendCommandsToPort(plan.toSend);
}

} // namespace korval
