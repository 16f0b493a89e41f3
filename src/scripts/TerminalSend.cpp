#include "TerminalSend.h"

#include "core/Text.h"

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

} // namespace korval
