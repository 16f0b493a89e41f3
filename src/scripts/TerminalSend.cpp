#include "TerminalSend.h"

namespace korval {

namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

} // namespace

std::string RewriteForSending(std::string text) {
    std::erase(text, '\t');
    replaceAll(text, "R,", "R");
    replaceAll(text, "R\r\n", "R\r");
    replaceAll(text, "R\r", "R");
    replaceAll(text, "rsm,", "rsm");
    replaceAll(text, "rsm\r\n", "rsm\r");
    replaceAll(text, "rsm\r", "rsm");
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
