#pragma once
// The line held for one refresh or scan. Two scans must not ask at once, since each one's
// replies would land in the other's reads; a troubleshooter leaves its ticks out meanwhile.
#include "core/ui/LineHold.h"

namespace korval {

class ScanLine {
public:
    ScanLine() { ++running_; }
    ~ScanLine() { --running_; }
    ScanLine(const ScanLine&) = delete;
    ScanLine& operator=(const ScanLine&) = delete;

    // Whether a refresh or a scan is under way (its waits let the user start another).
    static bool Busy() { return running_ > 0; }

private:
    static inline int running_ = 0;
    LineHold hold_;
};

} // namespace korval
