#pragma once
// The command line's pause: it has no windows, so the only events to run are the driver's sink
// writes, handed over at each round before a short sleep.
#include "core/ClsTimeDelay.h"
#include "link/Mailbox.h"

namespace korval::cli {

class DrainingWait final : public WaitContext {
public:
    explicit DrainingWait(Mailbox& mailbox) : mailbox_(mailbox) {}
    Clock::time_point now() override { return Clock::now(); }
    void runEvents(Clock::duration budget) override {
        mailbox_.drain();
        sleeper_.runEvents(budget);
    }

private:
    Mailbox& mailbox_;
    SleepingWaitContext sleeper_;
};

} // namespace korval::cli
