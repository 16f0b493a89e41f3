#include "sim/PreviewBench.h"

#include <algorithm>

namespace korval::sim {

namespace {

constexpr std::int64_t LookMicros = 1000; // the run is looked at every millisecond
constexpr int LooksPerPoint = 10;         // and traced every ten
constexpr double LongestZeroing = 60;

SimOptions benchOptions(const PreviewOptions& o) {
    SimOptions s;
    s.arrangement = "2+2"; // every motor a program may name
    s.travel = o.travel;
    return s;
}

double secondsOf(std::int64_t micros) {
    return static_cast<double>(micros) / 1e6;
}

std::optional<PreviewMarkKind> markOf(ProgramRunner::Waiting waiting) {
    switch (waiting) {
    case ProgramRunner::Waiting::Pause:
        return PreviewMarkKind::Pause;
    case ProgramRunner::Waiting::RunButton:
        return PreviewMarkKind::WaitRunButton;
    case ProgramRunner::Waiting::Input1:
        return PreviewMarkKind::WaitInput1;
    case ProgramRunner::Waiting::Nothing:
    case ProgramRunner::Waiting::Motion:
        break;
    }
    return std::nullopt;
}

// One motor's carriage through time: a point where it starts or stops moving, and one every
// trace step between.
class Trace {
public:
    void add(double t, long position) {
        if (!points_.empty() && points_.back().position == position) {
            held_ = PreviewPoint{t, position};
            return;
        }
        flush();
        points_.push_back({t, position});
    }
    std::vector<PreviewPoint> finish(double t) {
        if (!points_.empty()) {
            add(t, points_.back().position);
        }
        flush();
        return std::move(points_);
    }
    bool moved() const { return points_.size() > 1; }

private:
    void flush() {
        if (held_) {
            points_.push_back(*held_);
            held_.reset();
        }
    }
    std::vector<PreviewPoint> points_;
    std::optional<PreviewPoint> held_;
};

} // namespace

// Follows one run through time. The chain ticks in milliseconds, so do the looks: a pass, a
// wait and the end are timed to the millisecond.
struct PreviewBench::Follower {
    Follower(PreviewBench& b, PreviewResult& r)
        : bench(b), chain(b.chain_), options(b.options_), result(r), start(chain.nowMicros()) {}

    PreviewBench& bench;
    KdxChain& chain;
    const PreviewOptions& options;
    PreviewResult& result;
    std::int64_t start;
    std::array<Trace, 4> traces{};
    std::array<bool, 4> atSwitch{};
    bool tracing = true;
    ProgramRunner::Waiting waiting = ProgramRunner::Waiting::Nothing;
    double waitBegan = 0;
    std::optional<PreviewMark> openWait;
    bool answered = false;
    bool inputOn = false;
    long passes = 0;
    std::int64_t passBegan = 0;

    double now() const { return secondsOf(chain.nowMicros() - start); }

    void look(bool point) {
        const double t = now();
        watchPasses();
        if ((result.cycleSeconds && passes > options.cycles) || t >= options.longestTraced) {
            stopTracing(t);
        }
        watchWaits(t);
        if (!tracing) {
            return;
        }
        for (int axis = 1; axis <= 4; ++axis) {
            const long at = chain.carriage(axis);
            if (point) {
                traces[axis - 1].add(t, at);
            }
            const bool onSwitch = at <= -options.travel || at >= options.travel;
            if (onSwitch && !atSwitch[axis - 1]) {
                traces[axis - 1].add(t, at);
                result.marks.push_back({PreviewMarkKind::LimitSwitch, axis, t, t, at});
            }
            atSwitch[axis - 1] = onSwitch;
        }
    }

    void watchPasses() {
        const auto& runner = chain.runner();
        if (runner.passes() == passes && runner.passBegan() == passBegan) {
            return;
        }
        if (passes > 0 && runner.passes() > passes) {
            result.cycleSeconds = secondsOf(runner.passBegan() - passBegan);
        }
        passes = runner.passes();
        passBegan = runner.passBegan();
    }

    // Each wait of the run is marked; the operator answers a wait for a button or an input so
    // that the run goes on the moment the operator's time is up.
    void watchWaits(double t) {
        using W = ProgramRunner::Waiting;
        const auto state = chain.runner().waitingFor();
        if (inputOn && (state != W::Input1 || answered)) {
            chain.setInput(1, false);
            inputOn = false;
        }
        // Still waiting after an answer: the run came round to a wait of the same kind.
        if (state != waiting || answered) {
            closeWait(t);
            waiting = state;
            waitBegan = t;
            answered = false;
            if (const auto kind = markOf(state); kind && tracing) {
                openWait = PreviewMark{*kind, 0, t, t, 0};
            }
        }
        const double look = secondsOf(LookMicros);
        if (t + look - waitBegan + 1e-9 < options.operatorSeconds) {
            return;
        }
        if (state == W::RunButton) {
            chain.pressRunButton();
            answered = true;
        } else if (state == W::Input1) {
            chain.setInput(1, true);
            inputOn = answered = true;
        }
    }

    void closeWait(double t) {
        if (openWait) {
            openWait->end = t;
            result.marks.push_back(*openWait);
            openWait.reset();
        }
    }

    void stopTracing(double t) {
        if (!tracing) {
            return;
        }
        closeWait(t);
        for (int axis = 1; axis <= 4; ++axis) {
            traces[axis - 1].add(t, chain.carriage(axis));
        }
        tracing = false;
        result.traced = t;
    }

    void run() {
        look(true);
        for (int n = 1; chain.running(); ++n) {
            if (now() >= options.longestTimed || (!tracing && bench.endless_)) {
                break;
            }
            chain.advance(LookMicros);
            look(n % LooksPerPoint == 0);
        }
        stopTracing(now());
    }
};

PreviewBench::PreviewBench(const PreviewOptions& options)
    : options_(options), chain_(benchOptions(options)) {}

void PreviewBench::send(std::string_view text) {
    const SimFault before = chain_.fault();
    chain_.receive(text);
    const auto said = chain_.takeOutput();
    // A value the controller cannot take is reported with the code of a full memory; so is a
    // fault of its own the first time it arises.
    const auto code = FaultStreamCode(SimFault::MemoryFull);
    for (auto at = said.find(code); at != std::string::npos; at = said.find(code, at + 1)) {
        ++refused_;
    }
    if (before == SimFault::None && chain_.fault() != SimFault::None &&
        FaultStreamCode(chain_.fault()) == code) {
        --refused_;
    }
}

void PreviewBench::runAndWait(double seconds) {
    send("R");
    const auto until =
        chain_.nowMicros() + static_cast<std::int64_t>(std::min(seconds, LongestZeroing) * 1e6);
    while (chain_.running() && chain_.nowMicros() < until) {
        chain_.advance(LookMicros);
    }
}

PreviewResult PreviewBench::follow(int axis) {
    PreviewResult result;
    result.travel = options_.travel;
    if (!chain_.running() && chain_.fault() == SimFault::None) {
        send("R");
    }
    result.refused = refused_;
    result.program = chain_.running() ? chain_.runner().program() : chain_.currentProgram();
    const auto& code = chain_.code(result.program);
    endless_ = std::any_of(code.begin(), code.end(),
                           [](const ProgramCommand& c) { return c.op == ProgramOp::LoopForever; });
    const auto counted = std::find_if(code.begin(), code.end(), [](const ProgramCommand& c) {
        return c.op == ProgramOp::LoopCount;
    });
    const long count = counted == code.end() ? 0 : counted->value;

    Follower follower(*this, result);
    follower.run();
    for (int a = 1; a <= 4; ++a) {
        auto& trace = follower.traces[a - 1];
        if (trace.moved() || a == axis) {
            result.traces.push_back({a, trace.finish(result.traced)});
        }
    }
    std::stable_sort(result.marks.begin(), result.marks.end(),
                     [](const PreviewMark& x, const PreviewMark& y) { return x.start < y.start; });

    const double ran = follower.now();
    result.fault = chain_.fault();
    if (result.fault == SimFault::MemoryFull) {
        result.verdict = PreviewVerdict::DoesNotFit;
    } else if (result.fault != SimFault::None) {
        result.verdict = PreviewVerdict::Fault;
    } else if (code.empty()) {
        result.verdict = PreviewVerdict::NothingToRun;
    } else if (!chain_.running()) {
        result.verdict = PreviewVerdict::Ends;
        result.totalSeconds = ran;
        result.passes = count;
    } else if (endless_) {
        result.verdict = PreviewVerdict::Endless;
    } else if (count > 0 && result.cycleSeconds) {
        // Too long to follow to its end: the passes left at the time of one.
        result.verdict = PreviewVerdict::Ends;
        result.passes = count;
        result.totalSeconds =
            secondsOf(follower.passBegan - follower.start) +
            static_cast<double>(count - follower.passes + 1) * *result.cycleSeconds;
        result.totalEstimated = true;
    } else {
        result.verdict = PreviewVerdict::TooLong;
    }
    return result;
}

} // namespace korval::sim
