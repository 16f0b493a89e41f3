#include "sim/ProgramRunner.h"

namespace korval::sim {

namespace {

// Bits of the over-travel word that "O," reads.
constexpr int ReportOverTravel = 1;
constexpr int EndRunOnOverTravel = 2;
// User words that wait; the others switch an output: "U15" output 1 on, "U14" off.
constexpr long WaitForRunButton = 90;
constexpr long WaitForInput1 = 0;

int bit(int axis) {
    return 1 << (axis - 1);
}

} // namespace

ProgramRunner::ProgramRunner(const SimOptions& options, const SettingsStore& settings,
                             const ProgramStore& programs, BenchInputs& bench, KdxMotion& motion,
                             KdxFraming& out, const std::int64_t& now)
    : options_(options), settings_(settings), programs_(programs), bench_(bench), motion_(motion),
      out_(out), now_(now) {}

void ProgramRunner::start(int program) {
    if (fault_ != SimFault::None || run_.active) {
        return;
    }
    if (programs_.code(program).empty()) {
        out_.say("^");
        return;
    }
    run_ = Run{};
    run_.active = true;
    run_.program = program;
    run_.code = programs_.code(program);
    beginPass(true);
    step();
}

ProgramRunner::Waiting ProgramRunner::waitingFor() const {
    if (!run_.active) {
        return Waiting::Nothing;
    }
    if (run_.waitMotion != 0) {
        return Waiting::Motion;
    }
    if (run_.pauseUntil >= 0) {
        return Waiting::Pause;
    }
    switch (run_.waitUser) {
    case UserWait::RunButton:
        return Waiting::RunButton;
    case UserWait::Input1:
        return Waiting::Input1;
    case UserWait::None:
        break;
    }
    return Waiting::Nothing;
}

void ProgramRunner::beginPass(bool first) {
    run_.passes = first ? 1 : run_.passes + 1;
    run_.passBegan = now_;
}

void ProgramRunner::end() {
    run_ = Run{};
    out_.say("^");
}

bool ProgramRunner::waiting() {
    for (int axis = 1; axis <= 4; ++axis) {
        if ((run_.waitMotion & bit(axis)) && !motion_.moving(axis)) {
            run_.waitMotion &= ~bit(axis);
        }
    }
    if (run_.waitMotion != 0) {
        return true;
    }
    if (run_.pauseUntil >= 0) {
        if (now_ < run_.pauseUntil) {
            return true;
        }
        run_.pauseUntil = -1;
    }
    if (run_.waitUser == UserWait::RunButton) {
        if (!bench_.runPressed) {
            return true;
        }
        bench_.runPressed = false;
    } else if (run_.waitUser == UserWait::Input1 && !(bench_.inputs & 1)) {
        return true;
    }
    run_.waitUser = UserWait::None;
    return false;
}

void ProgramRunner::step() {
    // Bounded so that a loop with nothing in it that takes time cannot hold the clock.
    for (int guard = 0; guard < 1000 && run_.active; ++guard) {
        if (waiting()) {
            return;
        }
        if (run_.pc >= run_.code.size()) {
            end();
            return;
        }
        const ProgramCommand cmd = run_.code[run_.pc++];
        execute(cmd);
    }
}

void ProgramRunner::waitFor(int axis) {
    if (!run_.inBracket) {
        run_.waitMotion |= bit(axis);
    }
}

void ProgramRunner::execute(const ProgramCommand& cmd) {
    const auto value = static_cast<double>(cmd.value);
    switch (cmd.op) {
    case ProgramOp::Speed:
        motion_.setSpeed(cmd.motor, value);
        break;
    case ProgramOp::AnalogSpeed:
        motion_.setAnalogRange(cmd.motor, static_cast<int>(cmd.value));
        break;
    case ProgramOp::Index:
        motion_.moveBy(cmd.motor, value);
        waitFor(cmd.motor);
        break;
    case ProgramOp::IndexTo:
        motion_.moveTo(cmd.motor, value);
        waitFor(cmd.motor);
        break;
    case ProgramOp::IndexToLimit:
        if (!motion_.limitsWired(cmd.motor) && settings_.live.limit[cmd.motor - 1] <= 0) {
            raise(SimFault::ContinuousIndex); // no switch would ever end it
            return;
        }
        motion_.runToLimit(cmd.motor, static_cast<int>(cmd.value), false);
        waitFor(cmd.motor);
        break;
    case ProgramOp::ZeroHere:
        motion_.zeroHere(cmd.motor);
        break;
    case ProgramOp::BracketOpen:
        run_.inBracket = true;
        break;
    case ProgramOp::BracketClose:
        run_.inBracket = false;
        for (int axis = 1; axis <= 4; ++axis) {
            if (motion_.moving(axis)) {
                run_.waitMotion |= bit(axis);
            }
        }
        break;
    case ProgramOp::Pause:
        run_.pauseUntil = now_ + cmd.value * 100000;
        break;
    case ProgramOp::UserWord:
        userWord(cmd.value);
        break;
    case ProgramOp::LoopMarker:
        run_.loopStart = run_.pc;
        run_.loopCount = 0;
        beginPass(true);
        break;
    case ProgramOp::LoopCount:
        if (++run_.loopCount < cmd.value) {
            run_.pc = run_.loopStart;
            beginPass(false);
        } else {
            run_.loopCount = 0;
        }
        break;
    case ProgramOp::LoopForever:
        run_.pc = run_.loopStart;
        beginPass(false);
        break;
    }
}

void ProgramRunner::userWord(long word) {
    if (word == WaitForRunButton) {
        bench_.runPressed = false; // only a press from now on counts
        run_.waitUser = UserWait::RunButton;
    } else if (word == WaitForInput1) {
        run_.waitUser = UserWait::Input1;
    } else {
        const int output = 1 << (word / 10);
        outputs_ = word % 10 == 5 ? outputs_ | output : outputs_ & ~output;
    }
}

void ProgramRunner::jumpFromWait(int program) {
    if (!run_.active || run_.waitUser == UserWait::None) {
        return;
    }
    // Jumping to the program that is waiting could never return.
    if (run_.program == program) {
        raise(SimFault::JumpAndReturn);
        return;
    }
    run_ = Run{};
    start(program);
}

void ProgramRunner::raise(SimFault fault) {
    if (fault_ == SimFault::None) {
        out_.say(FaultStreamCode(fault)); // once: the status holds it until K
        fault_ = fault;
    }
    run_ = Run{};
    motion_.stopAll();
}

void ProgramRunner::kill() {
    run_ = Run{};
    motion_.stopAll();
    fault_ = SimFault::None;
}

void ProgramRunner::decelerateStop() {
    const bool wasRunning = run_.active;
    run_ = Run{};
    motion_.decelerateAll();
    if (wasRunning) {
        out_.say("^");
    }
}

void ProgramRunner::pressStopButton() {
    if (settings_.live.multi & SettingsStore::Values::StopAtOnce) {
        motion_.stopAll();
    } else {
        motion_.decelerateAll();
    }
    run_ = Run{};
    out_.say(FaultStreamCode(SimFault::StopButton));
    if (fault_ == SimFault::None) {
        fault_ = SimFault::StopButton;
    }
}

void ProgramRunner::overTravel() {
    if (options_.overTravel & ReportOverTravel) {
        out_.say("O");
    }
    if ((options_.overTravel & EndRunOnOverTravel) && run_.active) {
        end();
    }
}

void ProgramRunner::powerUp() {
    kill();
    outputs_ = 0;
}

} // namespace korval::sim
