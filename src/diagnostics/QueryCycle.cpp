#include "QueryCycle.h"

#include "CommandLanguage.h"

namespace korval {

void QueryCycle::Prologue() {
    Send(kdx::QueryPrologue);
    delay_.TimeDelay(ReplyDelay);
}

void QueryCycle::Send(std::string_view text) {
    driver_.SendCommandsToPort(std::string(text));
}

std::string QueryCycle::read(bool clear) {
    lineFailed_ = !driver_.PortIsOpen();
    if (lineFailed_) {
        return {};
    }
    auto reply = clear ? driver_.ReadReplyAndClearPort() : driver_.ReadReplyFromPort();
    answered_ += reply.empty() ? 0 : 1;
    return reply;
}

std::string QueryCycle::Ask(std::string_view query, double wait) {
    driver_.ClearPortChars();
    Send(query);
    delay_.TimeDelay(wait);
    return read(false);
}

std::string QueryCycle::AskAfterPause(std::string_view query) {
    // Cleared after the pause, so that whatever straggles in during it is not read as the reply.
    delay_.TimeDelay(ReplyDelay);
    return Ask(query);
}

} // namespace korval
