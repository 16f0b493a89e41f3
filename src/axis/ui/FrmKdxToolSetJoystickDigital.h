#pragma once
// The two speeds of the digital joystick of one axis: primary, and a secondary that may not be
// higher. It shares its setting words and its disable box with the jog buttons' window.
#include "DeviceWindow.h"

#include "core/ui/DrawingBox.h"

class QCheckBox;
class QLineEdit;

namespace korval {

class FrmKdxToolSetJoystickDigital final : public DeviceWindow {
    Q_OBJECT
public:
    explicit FrmKdxToolSetJoystickDigital(int axis);

    QLineEdit* TxtSpeedPrimary() const { return primary_; }
    QLineEdit* TxtSpeedSecondary() const { return secondary_; }
    QCheckBox* ChkDisableJogsJoystick() const { return disable_; }

    void PicSave_MouseDown() override;
    void ChkDisableJogsJoystick_Click();

private:
    QLineEdit* primary_;
    QLineEdit* secondary_;
    QCheckBox* disable_;
};

} // namespace korval
