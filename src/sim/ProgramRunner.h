#pragma once
// Runs a stored program against the motors and the bench inputs, and keeps the error state
// that stops a run and holds until "K".
#include <cstddef>
#include <cstdint>
#include <vector>

#include "sim/BenchInputs.h"
#include "sim/KdxFraming.h"
#include "sim/KdxMotion.h"
#include "sim/ProgramStore.h"
#include "sim/SettingsStore.h"
#include "sim/SimFault.h"
#include "sim/SimOptions.h"

namespace korval::sim {

class ProgramRunner {
public:
    ProgramRunner(const SimOptions& options, const SettingsStore& settings,
                  const ProgramStore& programs, BenchInputs& bench, KdxMotion& motion,
                  KdxFraming& out, const std::int64_t& now);

    bool active() const { return run_.active; }
    SimFault fault() const { return fault_; }
    int outputs() const { return outputs_; }

    void start(int program);
    // Goes on until the run waits for time, motion or the user.
    void step();
    // Input 3: breaks a wait of the run and jumps to `program`.
    void jumpFromWait(int program);
    void decelerateStop();
    void kill();
    void raise(SimFault fault);
    void pressStopButton();
    // A move that a switch stopped short of its target.
    void overTravel();
    void powerUp();

private:
    enum class UserWait { None, RunButton, Input1 };
    struct Run {
        bool active = false;
        int program = 0;
        std::vector<ProgramCommand> code;
        std::size_t pc = 0;
        std::size_t loopStart = 0;
        long loopCount = 0;
        bool inBracket = false;
        int waitMotion = 0; // mask of axes the run waits for
        std::int64_t pauseUntil = -1;
        UserWait waitUser = UserWait::None;
    };

    bool waiting();
    void execute(const ProgramCommand& cmd);
    void userWord(long word);
    void waitFor(int axis);
    void end();

    const SimOptions& options_;
    const SettingsStore& settings_;
    const ProgramStore& programs_;
    BenchInputs& bench_;
    KdxMotion& motion_;
    KdxFraming& out_;
    const std::int64_t& now_;
    Run run_;
    SimFault fault_ = SimFault::None;
    int outputs_ = 0;
};

} // namespace korval::sim
