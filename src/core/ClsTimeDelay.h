#pragma once
// The one way the program pauses: it lets events run until a monotonic clock has moved on by
// the delay. The window program pumps the Qt event loop; the command line and the tests give
// their own clock, so a test steps time exactly and a pause costs it nothing.
#include "Currency.h"

#include <chrono>

namespace korval {

class WaitContext {
public:
    using Clock = std::chrono::steady_clock;
    virtual ~WaitContext() = default;
    virtual Clock::time_point now() = 0;
    // Run pending events, returning after at most `budget` (sooner when there is nothing to do
    // is allowed; a virtual clock advances itself here).
    virtual void runEvents(Clock::duration budget) = 0;
};

// Real time with no events to run: sleeps in short steps.
class SleepingWaitContext final : public WaitContext {
public:
    Clock::time_point now() override { return Clock::now(); }
    void runEvents(Clock::duration budget) override;
};

class ClsTimeDelay {
public:
    explicit ClsTimeDelay(WaitContext& context) : context_(context) {}
    void TimeDelay(Currency seconds);
    void TimeDelay(double seconds);
    WaitContext& context() { return context_; }

private:
    WaitContext& context_;
};

} // namespace korval
