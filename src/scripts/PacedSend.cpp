#include "PacedSend.h"

#include "link/ReplyTiming.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace korval {

namespace {

// A tenth of a second of the line: a stop waits for no more than a piece or two.
std::size_t pieceBytes(int baud) {
    return static_cast<std::size_t>(std::max(16, baud / 100));
}

bool lineEnd(std::string_view text, std::size_t i) {
    return text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
}

} // namespace

std::vector<std::size_t> PieceEnds(std::string_view text, std::size_t limit) {
    std::vector<std::size_t> ends;
    bool comment = false; // at the start of the piece
    for (std::size_t start = 0; start < text.size();) {
        if (text.size() - start <= limit) {
            ends.push_back(text.size());
            break;
        }
        std::size_t atLine = 0;
        std::size_t atComma = 0;
        bool inComment = comment;
        for (std::size_t i = start; i < start + limit; ++i) {
            if (text[i] == '\r' || text[i] == '\n') {
                inComment = false;
                atLine = lineEnd(text, i) ? i + 1 : atLine;
            } else if (text[i] == ';') {
                inComment = true;
            } else if (text[i] == ',' && !inComment) {
                atComma = i + 1;
            }
        }
        const auto end = atLine != 0 ? atLine : atComma != 0 ? atComma : start + limit;
        for (std::size_t i = start; i < end; ++i) {
            comment = text[i] == ';' || (comment && text[i] != '\r' && text[i] != '\n');
        }
        ends.push_back(end);
        start = end;
    }
    return ends;
}

double SendProgress::SecondsLeft() const {
    return ReplyTiming::WireTime(total - std::min(sent, total), baud);
}

std::string SendProgress::Text() const {
    const auto left = static_cast<long>(std::ceil(SecondsLeft()));
    const auto time = left >= 60
                          ? std::to_string(left / 60) + " min " + std::to_string(left % 60) + " s"
                          : std::to_string(left) + " s";
    return "Sent " + std::to_string(sent) + " of " + std::to_string(total) + " bytes, " + time +
           " left at " + std::to_string(baud) + " baud";
}

SendEnd SendPaced(ClsDriverKdx& kdx, ClsTimeDelay& delay, std::string_view text, int baud,
                  const std::function<bool(const SendProgress&)>& going) {
    auto& clock = delay.context();
    const auto start = clock.now();
    std::size_t sent = 0;
    for (const auto end : PieceEnds(text, pieceBytes(baud))) {
        if (!going({sent, text.size(), baud})) {
            if (sent > 0) {
                kdx.SendCommandsToPort("\r"); // a comment or a line left open ends here
            }
            return SendEnd::Stopped;
        }
        if (kdx.SendCommandsToPort(std::string(text.substr(sent, end - sent))) == 0) {
            return SendEnd::LineFailed;
        }
        sent = end;
        const auto carried =
            start + std::chrono::duration_cast<WaitContext::Clock::duration>(
                        std::chrono::duration<double>(ReplyTiming::WireTime(sent, baud)));
        const auto now = clock.now();
        if (carried > now) {
            delay.TimeDelay(std::chrono::duration<double>(carried - now).count());
        }
    }
    going({sent, text.size(), baud});
    return SendEnd::Sent;
}

} // namespace korval
