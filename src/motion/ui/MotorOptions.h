#pragma once
// The motor options (OptMotor1..4) of the motion windows follow the axes the main window
// offers: axis N is offered while its "Set KDX to Motor" entry (MnuToolsSetUpAxisN) is enabled.
#include "motion/AxesPresent.h"
#include "motion/QuickMove.h"

#include <string>

class QRadioButton;
class QWidget;

namespace korval {

bool AxisOffered(int axis);
// OptMotorN of `form`; null when the form has none.
QRadioButton* OptMotor(const QWidget& form, int axis);
// The axes whose option is enabled on `form`: the only ones a move or a jog may go to.
AxesPresent OfferedAxes(const QWidget& form);
// A refused move the user should hear of, under the window's title; a move with nothing to
// move is silent, as a zero box is.
void TellRefusal(QuickMoveRefusal refusal, const std::string& title);
// The motor whose option is selected in `form`, 0 for none.
int SelectedMotor(const QWidget& form);

} // namespace korval
