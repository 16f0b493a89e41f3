#include "AbsentAxisControls.h"

namespace korval {

std::vector<FormControl> ControlsOfAbsentAxes(const std::function<bool(int axis)>& axisMenuOn) {
    std::vector<FormControl> off;
    for (int axis = 2; axis <= 4; ++axis) {
        if (axisMenuOn(axis)) {
            continue;
        }
        const auto n = std::to_string(axis);
        off.push_back({"FrmKdxToolAutoReverse", "OptMotor" + n});
        off.push_back({"FrmKdxToolQuickMoveSingle", "OptMotor" + n});
        off.push_back({"FrmKdxToolQuickMoveSingle", "FrameAdvStep" + n});
        off.push_back({"FrmKdxToolVirtualJog", "OptMotor" + n});
    }
    return off;
}

} // namespace korval
