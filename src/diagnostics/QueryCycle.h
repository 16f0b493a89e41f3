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
    void Wait(double seconds) { delay_.TimeDelay(seconds); }

    ClsDriverKdx& driver() { return driver_; }

private:
    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
};

} // namespace korval
