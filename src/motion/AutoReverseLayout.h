#pragma once
// Which of the AutoReverse tool's controls are shown and which take typing, for the settings
// as they stand. The window lays itself out from this; the generator asks it whether the
// instance combo is shown, so both always agree.
#include "AutoReverseSettings.h"

namespace korval {

struct AutoReverseLayout {
    // Start: a limit start shows its instance, speed and velocity style (with LblHomePosition
    // and LblHomeSpeed) and takes a typed position; a start here is taught by jogging instead.
    bool homeLimitControlsShown = false;
    bool homePositionEnabled = false; // TxtHomePosition
    bool homeJogShown = true;         // CmdJogHomeNegative, CmdJogHomePositive
    // Move: TxtMovePosition and LblMovePosition; typed for a distance, taught otherwise.
    bool movePositionShown = true;
    bool movePositionEnabled = false;
    bool moveJogShown = true; // CmdJogMoveNegative, CmdJogMovePositive
    // The pause boxes with their labels, LblMoveToStart, and the count with LblRepeat.
    bool homePauseShown = false;
    bool returnPauseShown = false;
    bool moveToStartShown = false;
    bool repeatShown = true;
};

AutoReverseLayout LayoutFor(const AutoReverseSettings& settings);

} // namespace korval
