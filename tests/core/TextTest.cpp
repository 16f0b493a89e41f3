#include "core/Text.h"
#include "core/RunAside.h"

#include <gtest/gtest.h>

#include <thread>

using namespace korval;

TEST(ReplaceAll, LeftToRightAndNeverIntoWhatWasPutIn) {
    const struct {
        const char* text;
        const char* from;
        const char* to;
        const char* expected;
    } cases[] = {
        {"R\r\nC,R\r\n", "R\r\n", "R\r", "R\rC,R\r"},
        {"aaa", "aa", "a", "aa"},
        {"a,b,,c", ",", ",\t\t", "a,\t\tb,\t\t,\t\tc"},
        {"xx", "x", "xx", "xxxx"},
        {"abc", "", "z", "abc"},
        {"abc", "d", "z", "abc"},
        {"", "a", "b", ""},
    };
    for (const auto& c : cases) {
        std::string text = c.text;
        ReplaceAll(text, c.from, c.to);
        EXPECT_EQ(text, c.expected) << c.text;
    }
}

// The work is done on another thread, and the caller's events run until it is.
TEST(RunAside, GivesTheResultOfWorkDoneOnAnotherThread) {
    int rounds = 0;
    struct Counting final : WaitContext {
        int& rounds;
        explicit Counting(int& r) : rounds(r) {}
        Clock::time_point now() override { return Clock::now(); }
        void runEvents(Clock::duration budget) override {
            ++rounds;
            std::this_thread::sleep_for(budget);
        }
    } counting(rounds);
    const auto caller = std::this_thread::get_id();
    const auto worker = RunAside(counting, [] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        return std::this_thread::get_id();
    });
    EXPECT_NE(worker, caller);
    EXPECT_GT(rounds, 0) << "events ran while the work went on";
}
