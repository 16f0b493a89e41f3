#pragma once
// What the wizard's menu entry switches off in the motion tools once the wizard has run: the
// controls of each of axes 2 to 4 whose set-up menu the wizard left off. Nothing is switched on.
#include <functional>
#include <string>
#include <vector>

namespace korval {

struct FormControl {
    std::string form;    // the window's name
    std::string control; // the control's name on it
};

// In the order they are switched off: axis 2 first, and for each axis the AutoReverse tool,
// the single axis QuickMove (option button, then its advance-per-step frame), the virtual jog.
std::vector<FormControl> ControlsOfAbsentAxes(const std::function<bool(int axis)>& axisMenuOn);

} // namespace korval
