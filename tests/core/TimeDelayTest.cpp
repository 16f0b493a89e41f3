#include "core/ClsTimeDelay.h"

#include <gtest/gtest.h>

#include <vector>

using namespace korval;
using namespace std::chrono;

namespace {

// A clock that moves only when events run, and records how long each round was allowed.
struct VirtualContext : WaitContext {
    using Clock = WaitContext::Clock;
    Clock::time_point t{};
    std::vector<Clock::duration> rounds;
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        rounds.push_back(budget);
        t += budget;
    }
};

} // namespace

TEST(ClsTimeDelay, RunsEventsUntilTheClockHasMovedOnByTheDelay) {
    VirtualContext ctx;
    ClsTimeDelay delay(ctx);
    delay.TimeDelay(*Currency::fromDouble(0.1));
    EXPECT_EQ(ctx.t - WaitContext::Clock::time_point{}, milliseconds(100));
    EXPECT_EQ(ctx.rounds.size(), 20u) << "events run in short rounds";
    for (const auto& r : ctx.rounds) {
        EXPECT_LE(r, milliseconds(5));
    }
    ctx.rounds.clear();
    delay.TimeDelay(0.0);
    delay.TimeDelay(-1.0);
    EXPECT_TRUE(ctx.rounds.empty());
}

TEST(ClsTimeDelay, RealTimeWaitIsNotShort) {
    SleepingWaitContext ctx;
    ClsTimeDelay delay(ctx);
    const auto start = steady_clock::now();
    delay.TimeDelay(0.02);
    EXPECT_GE(steady_clock::now() - start, milliseconds(20));
}
