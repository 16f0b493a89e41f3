#include "ClsTimeDelay.h"

#include <algorithm>
#include <thread>

namespace korval {

void SleepingWaitContext::runEvents(Clock::duration budget) {
    std::this_thread::sleep_for(budget);
}

void ClsTimeDelay::TimeDelay(Currency seconds) {
    TimeDelay(seconds.toDouble());
}

void ClsTimeDelay::TimeDelay(double seconds) {
    using namespace std::chrono;
    if (!(seconds > 0)) {
        return;
    }
    const auto end =
        context_.now() + duration_cast<WaitContext::Clock::duration>(duration<double>(seconds));
    // Short rounds keep the pause within a few milliseconds of its length while events run.
    constexpr WaitContext::Clock::duration round = milliseconds(5);
    for (auto now = context_.now(); now < end; now = context_.now()) {
        context_.runEvents(std::min<WaitContext::Clock::duration>(end - now, round));
    }
}

} // namespace korval
