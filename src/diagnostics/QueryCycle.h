#pragma once
// How a query is asked: discard what waits at the port, send, wait a fixed time, read. There is
// no terminator to wait for, so the delay is all that completes a reply.
#include "link/ClsDriverKdx.h"

#include <string>
#include <string_view>

namespace korval {

class QueryCycle {
public:
    static constexpr double ReplyDelay = 0.1;
    static constexpr double PulseSettingDelay = 0.2;
    static constexpr double ListingDelay = 1.0;

    QueryCycle(ClsDriverKdx& driver, ClsTimeDelay& delay) : driver_(driver), delay_(delay) {}

    // "K,Q,F" and 0.1 s: idle, on line, echo off, whatever the controller was doing.
    void Prologue();
    std::string Ask(std::string_view query, double wait = ReplyDelay);
    // As Ask, with a pause before the send too (the axis settings read that way).
    std::string AskAfterPause(std::string_view query);
    // The cycle's parts, for the queries that read their reply in a way of their own.
    void Send(std::string_view text);
    std::string ReadAndClear() { return read(true); }
    void Wait(double seconds) { delay_.TimeDelay(seconds); }

    ClsDriverKdx& driver() { return driver_; }

    // Queries that got any reply since the cycle was made.
    int Answered() const { return answered_; }
    // At the last read the port itself had failed (unplugged, hung up, a read or write error),
    // which is not mere silence: its reply was no reply.
    bool LineFailed() const { return lineFailed_; }

private:
    std::string read(bool clear);

    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
    int answered_ = 0;
    bool lineFailed_ = false;
};

} // namespace korval
