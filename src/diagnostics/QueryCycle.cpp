#include "QueryCycle.h"

#include "CommandLanguage.h"

#include <algorithm>
#include <chrono>

namespace korval {

namespace {

using Clock = WaitContext::Clock;

// How often the quick mode looks at what has arrived.
constexpr auto PollStep = std::chrono::milliseconds(1);
// A reply that ended this recently leaves the line known to be quiet.
constexpr auto RecentlyQuiet = std::chrono::milliseconds(50);

Clock::duration seconds(double s) {
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(s));
}

} // namespace

void QueryCycle::Prologue() {
    Send(kdx::QueryPrologue);
    settle(kdx::QueryPrologue.size());
}

void QueryCycle::settle(std::size_t sent) {
    // Right after a reply the line is known to be quiet. Otherwise something else may still be
    // on its way (a program's end, the answer to the user's last command), and the full pause
    // lets it come before the discard that follows.
    const bool recent = settledAt_ && delay_.context().now() - *settledAt_ <= RecentlyQuiet;
    if (Exact() || !recent) {
        endedEarlyAt_.reset(); // what comes now is a stray for the discard, not a reply's tail
        delay_.TimeDelay(ReplyDelay);
        settledAt_ = delay_.context().now();
        return;
    }
    listen(ReplyForm::None, ReplyDelay, sent);
}

void QueryCycle::Send(std::string_view text) {
    driver_.SendCommandsToPort(std::string(text));
}

void QueryCycle::Pause(double seconds) {
    if (Exact()) {
        delay_.TimeDelay(seconds);
    } else {
        delay_.context().runEvents(Clock::duration::zero());
    }
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

void QueryCycle::noteArrived(std::size_t arrived) {
    // Whatever comes after a reply was taken as whole belonged to it: it ran on.
    if (endedEarlyAt_ && arrived > *endedEarlyAt_) {
        ranOn_ = true;
        endedEarlyAt_.reset();
    }
}

void QueryCycle::discard() {
    if (endedEarlyAt_) {
        noteArrived(driver_.ReadReplyFromPort().size());
    }
    endedEarlyAt_.reset();
    driver_.ClearPortChars();
}

void QueryCycle::listen(ReplyForm form, double wait, std::size_t sent) {
    if (Exact()) {
        delay_.TimeDelay(wait);
        return;
    }
    auto& clock = delay_.context();
    const int baud = driver_.GetBaud();
    const auto start = clock.now();
    const auto ceiling = start + seconds(wait);
    const auto gap = seconds(timing_->Gap(baud));
    // With nothing to come back, the text sent must at least be on the line.
    const auto sentOut = start + seconds(ReplyTiming::WireTime(sent, baud));
    std::size_t arrived = 0;
    auto lastArrival = start;
    for (auto now = start; now < ceiling; now = clock.now()) {
        const auto text = driver_.ReadReplyFromPort();
        noteArrived(text.size());
        if (text.size() != arrived) {
            arrived = text.size();
            lastArrival = now;
        }
        const bool whole = form == ReplyForm::None ? now >= sentOut : EndMarkCame(form, text);
        if (whole && now - lastArrival >= gap) {
            endedEarlyAt_ = arrived;
            settledAt_ = now;
            return;
        }
        clock.runEvents(std::min<Clock::duration>(PollStep, ceiling - now));
    }
    settledAt_ = clock.now();
}

std::string QueryCycle::Ask(std::string_view query, ReplyForm form, double wait) {
    discard();
    Send(query);
    listen(form, wait, query.size());
    return read(false);
}

std::string QueryCycle::AskAndClear(std::string_view query, ReplyForm form) {
    discard();
    Send(query);
    listen(form, ReplyDelay, query.size());
    return read(true);
}

std::string QueryCycle::AskAfterPause(std::string_view query, ReplyForm form) {
    // Cleared after the pause, so that whatever straggles in during it is not read as the reply.
    settle(0);
    return Ask(query, form);
}

} // namespace korval
