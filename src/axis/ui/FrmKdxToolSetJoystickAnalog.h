#pragma once
// The analog joystick of one axis: its low and high speed ranges as rows of 250 steps per
// second, and the dead band around the stick's centre.
#include "DeviceWindow.h"

class QComboBox;
class QLineEdit;

namespace korval {

class FrmKdxToolSetJoystickAnalog final : public DeviceWindow {
    Q_OBJECT
public:
    explicit FrmKdxToolSetJoystickAnalog(int axis);

    QComboBox* CmbSpeedPrimary() const { return primary_; }
    QComboBox* CmbSpeedSecondary() const { return secondary_; }
    QLineEdit* TxtAnalogDeadBand() const { return deadBand_; }

    void PicSave_MouseDown() override;
    void CmbSpeedSecondary_Click();

private:
    QComboBox* primary_;
    QComboBox* secondary_;
    QLineEdit* deadBand_;
};

} // namespace korval
