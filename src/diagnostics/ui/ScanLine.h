#pragma once
// The line held for one refresh or scan. Two scans must not ask at once, since each one's
// replies would land in the other's reads; a troubleshooter leaves its ticks out meanwhile, and
// a scan that starts while a tick waits for its reply lets that tick end first.
#include "core/ui/LineHold.h"

namespace korval {

class ScanLine {
public:
    ScanLine(); // returns once no troubleshooter's tick is under way
    ~ScanLine() { --running_; }
    ScanLine(const ScanLine&) = delete;
    ScanLine& operator=(const ScanLine&) = delete;

    // Whether a refresh or a scan is under way (its waits let the user start another).
    static bool Busy() { return running_ > 0; }

    // Marks a troubleshooter's tick for its span.
    class Tick {
    public:
        static bool UnderWay() { return ticking_ > 0; }
        Tick() { ++ticking_; }
        ~Tick() { --ticking_; }
        Tick(const Tick&) = delete;
        Tick& operator=(const Tick&) = delete;
    };

private:
    static inline int running_ = 0;
    static inline int ticking_ = 0;
    LineHold hold_;
};

} // namespace korval
