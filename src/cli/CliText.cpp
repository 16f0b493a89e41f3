#include "CliText.h"

#include "core/Text.h"

namespace korval::cli {

std::string AsLines(std::string reply) {
    ReplaceAll(reply, "\r\n", "\n");
    ReplaceAll(reply, "\r", "\n");
    if (!reply.empty() && reply.back() != '\n') {
        reply += '\n';
    }
    return reply;
}

std::string ForShell(std::string text) {
    ReplaceAll(text, "\r\n", "\n");
    return text;
}

} // namespace korval::cli
