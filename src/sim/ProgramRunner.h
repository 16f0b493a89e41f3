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

    // What the run waits for now, for a watcher that follows it through time.
    enum class Waiting { Nothing, Motion, Pause, RunButton, Input1 };
    Waiting waitingFor() const;
    int program() const { return run_.program; }
    // Passes of the repeated part begun so far (the whole program is one pass until a loop
    // marker), and when the present one began.
    long passes() const { return run_.passes; }
    std::int64_t passBegan() const { return run_.passBegan; }

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
        long passes = 0;
        std::int64_t passBegan = 0;
    };

    bool waiting();
    void execute(const ProgramCommand& cmd);
    void userWord(long word);
    void waitFor(int axis);
    void beginPass(bool first);
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
