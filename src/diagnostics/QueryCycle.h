#pragma once
// How a query is asked: discard what waits at the port, send, wait, read. The wait is the fixed
// one of each query; in the quick mode it ends sooner, once the reply's end mark has come and
// the line has stayed quiet for a short gap (ReplyTiming), the fixed wait being the ceiling.
#include "ReplyForm.h"

#include "link/ClsDriverKdx.h"
#include "link/ReplyTiming.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korval {

class QueryCycle {
public:
    static constexpr double ReplyDelay = 0.1;
    static constexpr double PulseSettingDelay = 0.2;
    static constexpr double ListingDelay = 1.0;

    // Without a timing the cycle keeps to the fixed waits. A timing is read afresh at each
    // query, so a change of the setting takes effect at the next one.
    QueryCycle(ClsDriverKdx& driver, ClsTimeDelay& delay, const ReplyTiming* timing = nullptr)
        : driver_(driver), delay_(delay), timing_(timing) {}

    // "K,Q,F" and 0.1 s: idle, on line, echo off, whatever the controller was doing.
    void Prologue();
    std::string Ask(std::string_view query, ReplyForm form, double wait = ReplyDelay);
    // As Ask, with a pause before the send too (the axis settings read that way).
    std::string AskAfterPause(std::string_view query, ReplyForm form);
    // As Ask, and the reply then taken out of the port.
    std::string AskAndClear(std::string_view query, ReplyForm form);
    void Send(std::string_view text);
    // A pause between two steps of a scan; the quick mode only lets events run.
    void Pause(double seconds);

    ClsDriverKdx& driver() { return driver_; }

    // Whether this query keeps to the fixed waits.
    bool Exact() const { return keepExact_ || timing_ == nullptr || timing_->exact; }
    // Fixed waits from now on, whatever the setting: the controller was seen to go on sending
    // after what looked like the end of a reply.
    void KeepExact(bool keep) { keepExact_ = keep; }
    // Since the last ClearRanOn, a reply that had ended early went on: bytes came after its end
    // mark and its gap. What was read from it may be cut short.
    bool ReplyRanOn() const { return ranOn_; }
    void ClearRanOn() { ranOn_ = false; }

    // Queries that got any reply since the cycle was made.
    int Answered() const { return answered_; }
    // At the last read the port itself had failed (unplugged, hung up, a read or write error),
    // which is not mere silence: its reply was no reply.
    bool LineFailed() const { return lineFailed_; }

private:
    std::string read(bool clear);
    void discard();
    void noteArrived(std::size_t arrived);
    // Waits for the reply to what was just sent: the fixed wait, or in the quick mode until
    // the reply is whole, never longer than the fixed wait.
    void listen(ReplyForm form, double wait, std::size_t sent);
    // The pause after a text that has no reply (the prologue), or before a query.
    void settle(std::size_t sent);

    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
    const ReplyTiming* timing_;
    bool keepExact_ = false;
    bool ranOn_ = false;
    // How much had arrived when the line was last taken as done before its fixed wait: the
    // port's text may not grow beyond it until the next discard.
    std::optional<std::size_t> endedEarlyAt_;
    // When the line was last found done with: a reply whole, or a wait over.
    std::optional<WaitContext::Clock::time_point> settledAt_;
    int answered_ = 0;
    bool lineFailed_ = false;
};

} // namespace korval
