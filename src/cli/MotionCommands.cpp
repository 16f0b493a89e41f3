// move, jog, position: the axes moved and read from a shell, by the rules of the motion windows.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CommandTable.h"

#include "core/Numbers.h"
#include "motion/AxesPresent.h"
#include "motion/ClsJog.h"
#include "motion/PositionReading.h"
#include "motion/QuickMove.h"
#include "motion/QuickMoveUnits.h"

#include <algorithm>
#include <csignal>
#include <limits>
#include <optional>
#include <ostream>
#include <vector>

namespace korval::cli {

namespace {

constexpr double SettleSeconds = 10; // a stop or the end of a move, at most
constexpr double LongestJogSeconds = 3600;

volatile std::sig_atomic_t interrupted = 0;

// While motion runs, Ctrl-C (or a termination) stops the axes before the program ends, as the
// window's Stop button would: a motor is never left running because its command line went.
class InterruptGuard {
public:
    InterruptGuard() {
        interrupted = 0;
        previousInt_ = std::signal(SIGINT, [](int) { interrupted = 1; });
        previousTerm_ = std::signal(SIGTERM, [](int) { interrupted = 1; });
    }
    ~InterruptGuard() {
        std::signal(SIGINT, previousInt_);
        std::signal(SIGTERM, previousTerm_);
    }
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
    static bool Interrupted() { return interrupted != 0; }

private:
    void (*previousInt_)(int);
    void (*previousTerm_)(int);
};

// The value of "--NAME VALUE" or "--NAME=VALUE", taken out of `args`. An option given without its
// value sets `error`.
std::optional<std::string> takeOption(std::vector<std::string>& args, const std::string& name,
                                      std::string& error) {
    for (auto it = args.begin(); it != args.end(); ++it) {
        if (*it == name) {
            if (it + 1 == args.end()) {
                error = name + " needs a value";
                return std::nullopt;
            }
            std::string value = *(it + 1);
            args.erase(it, it + 2);
            return value;
        }
        if (it->starts_with(name + "=")) {
            std::string value = it->substr(name.size() + 1);
            args.erase(it);
            return value;
        }
    }
    return std::nullopt;
}

std::optional<std::int32_t> axisNumber(const std::string& text) {
    if (text.size() == 1 && text[0] >= '1' && text[0] <= '4') {
        return text[0] - '0';
    }
    return std::nullopt;
}

// The advance per step given with --units-per-step, as the windows hold it; 1 without one.
std::optional<std::string> unitsPerStep(std::vector<std::string>& args, std::string& error) {
    const auto given = takeOption(args, "--units-per-step", error);
    if (!given) {
        return error.empty() ? std::optional<std::string>("1") : std::nullopt;
    }
    const auto held = AdvStepFromBox(*given);
    if (!held || held->units() <= 0) {
        error = "--units-per-step takes a number of at least 0.0001";
        return std::nullopt;
    }
    return held->toText();
}

// Where each axis stands now, one "AXIS POSITION" line each.
int printPositions(CliRun& r, const std::vector<std::int32_t>& motors, const std::string& advance) {
    int status = ExitOk;
    for (const auto motor : motors) {
        const auto reading = ReadPosition(r.session->kdx().GetCurrentMotorPosition(motor));
        if (reading.kind == PositionReading::Kind::Steps) {
            r.out << motor << " " << PositionInUnits(reading.steps, advance) << "\n";
        } else {
            status =
                Fail(r.err, "axis " + std::to_string(motor) + " gave no position", ExitNoAnswer);
        }
    }
    return status;
}

// Asks the status until nothing moves any more (a silent controller counts as still), at most
// `seconds`; Ctrl-C stops the axes.
void waitWhileMoving(CliSession& session, double seconds) {
    auto& kdx = session.kdx();
    for (double waited = 0; waited < seconds; waited += 0.1) {
        if (InterruptGuard::Interrupted()) {
            kdx.StopProgram();
            interrupted = 0;
        }
        const auto word = kdx.VerifyStatus();
        if (word != "BUSY" && word != "JOGGING" && word != "OFFLINEBUSY") {
            return;
        }
        session.delay().TimeDelay(0.1);
    }
}

// A refusal before anything went out.
int refuse(CliRun& r, QuickMoveRefusal refusal, const std::vector<std::int32_t>& motors,
           const AxesPresent& present) {
    if (refusal == QuickMoveRefusal::NoSuchAxis) {
        for (const auto motor : motors) {
            if (!present.Has(motor)) {
                return Fail(r.err,
                            "axis " + std::to_string(motor) +
                                " is not on this controller; nothing was sent",
                            ExitUsage);
            }
        }
    }
    return Fail(r.err, RefusalText(refusal), ExitUsage);
}

// One axis as the single axis window moves it: a negative distance under the negative arrow.
QuickMoveOutcome planOne(std::int32_t motor, const AxesPresent& present, const std::string& advance,
                         const std::string& velocity, const std::string& distance) {
    const double d = BoxValue(distance);
    return PlanQuickMoveSingle(motor, present, advance, velocity, d < 0 ? NumToText(-d) : distance,
                               d < 0 ? QuickMoveDirection::Negative : QuickMoveDirection::Positive);
}

QuickMoveGroup group(std::int32_t motor, const std::string& advance, const std::string& velocity,
                     const std::string& distance) {
    return {true,
            motor,
            BoxValue(advance),
            velocity,
            distance,
            BoxValue(distance) < 0 ? QuickMoveDirection::Negative : QuickMoveDirection::Positive};
}

int move(CliRun& r) {
    auto args = r.options.args;
    std::string error;
    const auto advance = unitsPerStep(args, error);
    if (!advance) {
        return Fail(r.err, error, ExitUsage);
    }
    if (args.size() != 3 && args.size() != 6) {
        return Fail(r.err, "move takes AXIS VELOCITY DISTANCE, for one axis or two", ExitUsage);
    }
    std::vector<std::int32_t> motors;
    for (std::size_t i = 0; i < args.size(); i += 3) {
        const auto motor = axisNumber(args[i]);
        if (!motor) {
            return Fail(r.err, "an axis is 1, 2, 3 or 4, not " + args[i], ExitUsage);
        }
        motors.push_back(*motor);
    }
    const bool two = motors.size() == 2;
    if (two && (motors[0] <= 2) == (motors[1] <= 2)) {
        return Fail(r.err, "two axes move together as one of axes 1 and 2 with one of 3 and 4",
                    ExitUsage);
    }
    auto& kdx = r.session->kdx();
    const auto present = ProbeAxes(kdx, motors);
    QuickMoveOutcome outcome;
    if (two) {
        const auto a = group(motors[0], *advance, args[1], args[2]);
        const auto b = group(motors[1], *advance, args[4], args[5]);
        outcome =
            motors[0] <= 2 ? PlanQuickMoveMulti(a, b, present) : PlanQuickMoveMulti(b, a, present);
    } else {
        outcome = planOne(motors[0], present, *advance, args[1], args[2]);
    }
    if (outcome.refusal == QuickMoveRefusal::None && outcome.plan.motors.empty()) {
        outcome.refusal = QuickMoveRefusal::NothingToMove; // the window would send "C,(),R"
    }
    if (outcome.refusal != QuickMoveRefusal::None) {
        return refuse(r, outcome.refusal, motors, present);
    }
    InterruptGuard guard;
    SendQuickMove(kdx, r.session->delay(), outcome.plan, InterruptGuard::Interrupted);
    waitWhileMoving(*r.session, std::numeric_limits<double>::infinity()); // it ends by itself
    std::sort(motors.begin(), motors.end());
    return printPositions(r, motors, *advance);
}

int jog(CliRun& r) {
    auto args = r.options.args;
    std::string error;
    const auto speedText = takeOption(args, "--speed", error);
    const auto secondsText = error.empty() ? takeOption(args, "--seconds", error) : std::nullopt;
    if (!error.empty()) {
        return Fail(r.err, error, ExitUsage);
    }
    const auto motor = args.size() == 2 ? axisNumber(args[0]) : std::nullopt;
    if (!motor || (args[1] != "+" && args[1] != "-") || !speedText || !secondsText) {
        return Fail(r.err, "jog takes AXIS +|- --speed V --seconds T", ExitUsage);
    }
    const auto speed = JogSpeed(*speedText);
    if (speed <= 0 || speed > 6000) {
        return Fail(r.err, "--speed takes steps per second from 1 to 6000", ExitUsage);
    }
    const double seconds = IsNumeric(*secondsText) ? Val(*secondsText) : 0;
    if (!(seconds > 0 && seconds <= LongestJogSeconds)) {
        return Fail(r.err, "--seconds takes a time above 0 and up to 3600", ExitUsage);
    }
    auto& kdx = r.session->kdx();
    const std::vector<std::int32_t> motors{*motor};
    const auto present = ProbeAxes(kdx, motors);
    if (!present.Has(*motor)) {
        return refuse(r, QuickMoveRefusal::NoSuchAxis, motors, present);
    }
    ClsJog jogger(kdx);
    InterruptGuard guard;
    if (args[1] == "+") {
        jogger.PositiveJog(*motor, speed);
    } else {
        jogger.NegativeJog(*motor, speed);
    }
    for (double held = 0; held < seconds && !InterruptGuard::Interrupted(); held += 0.05) {
        r.session->delay().TimeDelay(0.05);
    }
    if (jogger.StopJog() == 0) {
        return Fail(r.err, "the stop did not reach the controller", ExitNoAnswer);
    }
    waitWhileMoving(*r.session, SettleSeconds);
    return printPositions(r, motors, "1");
}

int position(CliRun& r) {
    auto args = r.options.args;
    std::string error;
    const auto advance = unitsPerStep(args, error);
    if (!advance) {
        return Fail(r.err, error, ExitUsage);
    }
    const auto motor = args.size() == 1 ? axisNumber(args[0]) : std::nullopt;
    if (args.size() > 1 || (args.size() == 1 && !motor)) {
        return Fail(r.err, "position takes an axis, 1 to 4, or none for all", ExitUsage);
    }
    auto& kdx = r.session->kdx();
    if (motor) {
        const auto reading = ReadPosition(kdx.GetCurrentMotorPosition(*motor));
        const auto axis = "axis " + std::to_string(*motor);
        switch (reading.kind) {
        case PositionReading::Kind::Steps:
            r.out << PositionInUnits(reading.steps, *advance) << "\n";
            return ExitOk;
        case PositionReading::Kind::Refused:
            return Fail(r.err, axis + " is not on this controller", ExitUsage);
        case PositionReading::Kind::NoAnswer:
            break;
        }
        return Fail(r.err, axis + " does not answer", ExitNoAnswer);
    }
    bool any = false;
    for (std::int32_t m = 1; m <= 4; ++m) {
        const auto reading = ReadPosition(kdx.GetCurrentMotorPosition(m));
        if (reading.kind == PositionReading::Kind::Steps) {
            r.out << m << " " << PositionInUnits(reading.steps, *advance) << "\n";
            any = true;
        }
    }
    return any ? ExitOk : Fail(r.err, "no axis gave its position", ExitNoAnswer);
}

const CliCommand Commands[] = {
    {"move",
     "move AXIS VELOCITY DISTANCE [AXIS VELOCITY DISTANCE] [--units-per-step X]\n"
     "                       move one axis, or one of axes 1-2 with one of 3-4 at once, as\n"
     "                       the QuickMove windows do; a negative distance moves negative;\n"
     "                       with X the velocity and distance are in your units (X per step);\n"
     "                       print where the axes stopped",
     Needs::Online, move},
    {"jog",
     "jog AXIS +|- --speed V --seconds T\n"
     "                       jog at V steps per second for T seconds, then stop; print the\n"
     "                       position; Ctrl-C stops at once",
     Needs::Online, jog},
    {"position",
     "position [AXIS] [--units-per-step X]\n"
     "                       print the position of one axis, or \"AXIS POSITION\" for each",
     Needs::Port, position},
};

} // namespace

std::span<const CliCommand> MotionCommands() {
    return Commands;
}

} // namespace korval::cli
