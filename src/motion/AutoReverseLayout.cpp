#include "AutoReverseLayout.h"

namespace korval {

AutoReverseLayout LayoutFor(const AutoReverseSettings& s) {
    AutoReverseLayout l;
    const bool fromLimit = StartsFromLimit(s.CmbHomeStyle);
    l.homeLimitControlsShown = fromLimit;
    l.homePositionEnabled = fromLimit;
    l.homeJogShown = !fromLimit;

    const auto mode = s.CmbMovePosition;
    l.movePositionShown = mode == MoveMode::Teach || mode == MoveMode::Distance;
    l.movePositionEnabled = mode == MoveMode::Distance;
    l.moveJogShown = mode == MoveMode::Teach;

    l.homePauseShown = s.CmbHomeIO == UserAction::Pause;
    l.returnPauseShown = s.CmbReturnPosition == UserAction::Pause;
    l.moveToStartShown = s.CmbReturnPosition != UserAction::NoAction;
    l.repeatShown = s.CmbRepeat == RepeatMode::Do;
    return l;
}

} // namespace korval
