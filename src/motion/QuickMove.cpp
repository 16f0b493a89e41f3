#include "QuickMove.h"

#include "QuickMoveUnits.h"

#include "axis/AxisSet.h"
#include "core/Currency.h"
#include "core/Numbers.h"

#include <cmath>
#include <limits>

namespace korval {

namespace {

// The wait of a negative single move: velocity over distance, plus one, in whole seconds; held
// to the 32-bit range.
std::int32_t waitLimit(double v, double d) {
    const double limit = v / d + 1;
    if (const auto whole = ToInt32(limit)) {
        return *whole;
    }
    return limit > 0 ? std::numeric_limits<std::int32_t>::max()
                     : std::numeric_limits<std::int32_t>::min();
}

// A group's box in steps: its units over the advance as the window writes them with seven
// decimals, then rounded, halves to even, without a sign.
std::optional<double> groupSteps(const std::string& box, double advance) {
    const double units = BoxValue(box) / advance;
    if (!std::isfinite(units)) {
        return std::nullopt;
    }
    return std::fabs(Round(BoxValue(FormatUnits(units))));
}

} // namespace

QuickMoveOutcome PlanQuickMoveSingle(std::int32_t motor, AxesPresent present,
                                     std::string_view advStep, std::string_view velocity,
                                     std::string_view distance, QuickMoveDirection direction) {
    if (!present.Has(motor)) {
        return {QuickMoveRefusal::NoSuchAxis, {}};
    }
    // Each read as the fixed-point money type the windows use, four decimals.
    const auto advance = Currency::fromDouble(BoxValue(advStep));
    const auto speed = Currency::fromDouble(BoxValue(velocity));
    const auto length = Currency::fromDouble(BoxValue(distance));
    if (!advance || !speed || !length) {
        return {QuickMoveRefusal::TooLarge, {}};
    }
    const auto a = static_cast<double>(advance->units());
    const auto v = WholeSteps(static_cast<double>(speed->units()), a);
    const auto d = WholeSteps(static_cast<double>(length->units()), a);
    // A distance under half a step would read "I{m}M0,": a run to the limit, not a short move.
    if (!v || !d || speed->units() == 0 || *d == 0) {
        return {QuickMoveRefusal::NothingToMove, {}};
    }
    const auto m = std::to_string(motor);
    const auto head = "C,S" + m + "M" + StepsText(*v) + ",I" + m + "M";
    if (direction == QuickMoveDirection::Positive) {
        return {QuickMoveRefusal::None,
                {head + StepsText(*d) + ",R", QuickMoveWait::None, 0, {motor}}};
    }
    return {
        QuickMoveRefusal::None,
        {head + "-" + StepsText(*d) + ",", QuickMoveWait::RunAndWait, waitLimit(*v, *d), {motor}}};
}

QuickMoveOutcome PlanQuickMoveSingle(AxisSet& axes, std::int32_t motor, AxesPresent present,
                                     std::string_view velocity, std::string_view distance,
                                     QuickMoveDirection direction) {
    const auto* axis = axes.ByNumber(motor);
    if (axis == nullptr) {
        return {QuickMoveRefusal::NoSuchAxis, {}};
    }
    return PlanQuickMoveSingle(motor, present, axis->GetAdvStep(), velocity, distance, direction);
}

QuickMoveOutcome PlanQuickMoveMulti(const QuickMoveGroup& group1, const QuickMoveGroup& group2,
                                    AxesPresent present) {
    std::string together;
    std::vector<std::int32_t> motors;
    for (const auto* g : {&group2, &group1}) {
        if (!GroupTakesPart(g->chosen, g->distance)) {
            continue;
        }
        if (!present.Has(g->motor)) {
            return {QuickMoveRefusal::NoSuchAxis, {}};
        }
        if (g->advance == 0 || !g->direction) {
            continue;
        }
        const auto v = groupSteps(g->velocity, g->advance);
        const auto d = groupSteps(g->distance, g->advance);
        if (!v || !d) {
            return {QuickMoveRefusal::TooLarge, {}};
        }
        if (*d == 0) {
            continue; // as above: not a run to the limit
        }
        const auto m = std::to_string(g->motor);
        const auto sign = *g->direction == QuickMoveDirection::Negative ? "-" : "";
        together += "S" + m + "M" + StepsText(*v) + ",I" + m + "M" + sign + StepsText(*d) + ",";
        motors.push_back(g->motor);
    }
    return {QuickMoveRefusal::None,
            {"C,(" + together + "),R", QuickMoveWait::WhileBusy, 0, std::move(motors)}};
}

std::string RefusalText(QuickMoveRefusal refusal) {
    switch (refusal) {
    case QuickMoveRefusal::None:
        break;
    case QuickMoveRefusal::NoSuchAxis:
        return "The KDX does not drive that axis: nothing was sent.";
    case QuickMoveRefusal::NothingToMove:
        return "Nothing to move: the advance per step, the velocity or the distance is 0.";
    case QuickMoveRefusal::TooLarge:
        return "The velocity or the distance is too large: nothing was sent.";
    }
    return {};
}

void SendQuickMove(ClsDriverKdx& kdx, ClsTimeDelay& delay, const QuickMovePlan& plan,
                   const std::function<bool()>& cancelled) {
    kdx.SendCommandsToPort(plan.commands);
    switch (plan.wait) {
    case QuickMoveWait::None:
        break;
    case QuickMoveWait::RunAndWait:
        kdx.RunKdxProgramAndWaitForFinish(plan.timeLimit);
        break;
    case QuickMoveWait::WhileBusy:
        delay.TimeDelay(0.1);
        do {
            delay.context().runEvents(WaitContext::Clock::duration::zero());
            kdx.VerifyStatus();
            delay.TimeDelay(0.5);
        } while (kdx.LastStatus == "BUSY" && !(cancelled && cancelled()));
        break;
    }
}

} // namespace korval
