#pragma once
// The QuickMove windows' moves: a distance at a velocity in the user's units, turned into whole
// motor steps through each axis's advance per step, and the exact command that makes the move.
// One axis, or two at once between "(" and ")".
#include "AxesPresent.h"

#include "core/ClsTimeDelay.h"
#include "link/ClsDriverKdx.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korval {

class AxisSet;

enum class QuickMoveDirection { Negative, Positive };

// How the program waits once the command is sent.
enum class QuickMoveWait {
    None,       // the single move's positive arrow: the call returns at once
    RunAndWait, // the single move's negative arrow: run it and wait for its end
    WhileBusy,  // the simultaneous move: ask the status until it is no longer "BUSY"
};

struct QuickMovePlan {
    std::string commands;
    QuickMoveWait wait = QuickMoveWait::None;
    std::int32_t timeLimit = 0;       // for RunAndWait
    std::vector<std::int32_t> motors; // the axes the command moves
};

enum class QuickMoveRefusal {
    None,
    NoSuchAxis,    // the controller has no such motor: nothing is sent
    NothingToMove, // an advance, velocity or distance of 0 or none, or a distance under a step
    TooLarge,      // a number past what the windows can hold
};

struct QuickMoveOutcome {
    QuickMoveRefusal refusal = QuickMoveRefusal::None;
    QuickMovePlan plan; // only when not refused
};

// One axis group of the simultaneous window.
struct QuickMoveGroup {
    bool chosen = false; // its motor option is shown and selected
    std::int32_t motor = 0;
    double advance = 0; // the advance per step in force for that motor
    std::string velocity;
    std::string distance;
    std::optional<QuickMoveDirection> direction; // none when neither option is set
};

// One axis the controller drives: "C,S{m}M{v},I{m}M{d},R" for the positive arrow;
// "C,S{m}M{v},I{m}M-{d}," for the negative one, which is then run and waited for. The advance is
// the axis's text.
QuickMoveOutcome PlanQuickMoveSingle(std::int32_t motor, AxesPresent present,
                                     std::string_view advStep, std::string_view velocity,
                                     std::string_view distance, QuickMoveDirection direction);

// The same with the advance per step of that axis's record; an axis with no record is absent.
QuickMoveOutcome PlanQuickMoveSingle(AxisSet& axes, std::int32_t motor, AxesPresent present,
                                     std::string_view velocity, std::string_view distance,
                                     QuickMoveDirection direction);

// Two axes at once: "C,(" group 2's speed and index, group 1's, "),R". A group takes part when
// chosen with a distance that is a number other than 0; it adds nothing when its advance is 0,
// its direction unset or its distance under a step. The sign comes from the direction alone.
QuickMoveOutcome PlanQuickMoveMulti(const QuickMoveGroup& group1, const QuickMoveGroup& group2,
                                    AxesPresent present);

// What the user is told of a refusal; empty for none.
std::string RefusalText(QuickMoveRefusal refusal);

// Sends the command and waits as the plan says. The wait while busy has no time limit of its own:
// a controller that stops answering reports so, and that ends it; so does `cancelled`.
void SendQuickMove(ClsDriverKdx& kdx, ClsTimeDelay& delay, const QuickMovePlan& plan,
                   const std::function<bool()>& cancelled = {});

} // namespace korval
