#include "QueryCycle.h"

#include "CommandLanguage.h"

namespace korval {

void QueryCycle::Prologue() {
    driver_.SendCommandsToPort(std::string(kdx::QueryPrologue));
    delay_.TimeDelay(ReplyDelay);
}

std::string QueryCycle::Ask(std::string_view query, double wait) {
    driver_.ClearPortChars();
    driver_.SendCommandsToPort(std::string(query));
    delay_.TimeDelay(wait);
    return driver_.ReadReplyFromPort();
}

std::string QueryCycle::AskAfterPause(std::string_view query) {
    // Cleared after the pause, so that whatever straggles in during it is not read as the reply.
    delay_.TimeDelay(ReplyDelay);
    driver_.ClearPortChars();
    driver_.SendCommandsToPort(std::string(query));
    delay_.TimeDelay(ReplyDelay);
    return driver_.ReadReplyFromPort();
}

} // namespace korval
