#pragma once
// Waiting for the faces built on Qt: a pause lets the Qt event loop run, so sink handlers,
// timers and button presses go on while the program waits.
#include "core/ClsTimeDelay.h"

namespace korval {

class QtWaitContext final : public WaitContext {
public:
    Clock::time_point now() override { return Clock::now(); }
    void runEvents(Clock::duration budget) override;
};

} // namespace korval
