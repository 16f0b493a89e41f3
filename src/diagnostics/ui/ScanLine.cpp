#include "ScanLine.h"

namespace korval {

namespace {

constexpr double TickPoll = 0.02;

} // namespace

ScanLine::ScanLine() {
    ++running_; // first, so that no new tick starts while this one waits
    while (ticking_ > 0) {
        App().delay.TimeDelay(TickPoll);
    }
}

} // namespace korval
