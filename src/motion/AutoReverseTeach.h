#pragma once
// Teaching an AutoReverse position by jogging: the motor runs while a jog button is held, and
// the position where it stopped becomes the start or the move position. Unlike the virtual jog,
// the stop is sent here and the position read only then.
#include "AutoReverseGenerator.h"
#include "ClsJog.h"

namespace korval {

enum class TeachFrame { Home, Move }; // CmdJogHome... or CmdJogMove...

// Button down: jog at the frame's speed and velocity style, then tidy the frame's position box.
void StartTeachJog(AutoReverseGenerator& generator, ClsJog& jog, TeachFrame frame, bool positive);

// Button up: stop, take the position the motor stopped at (while the window is there), and
// rebuild the frame's section; a start position is then made zero again by that rebuild.
void EndTeachJog(AutoReverseGenerator& generator, ClsJog& jog, AutoReverseController& kdx,
                 TeachFrame frame);

} // namespace korval
