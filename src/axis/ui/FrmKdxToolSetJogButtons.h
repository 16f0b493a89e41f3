#pragma once
// The speed of the jog buttons of one axis. The jog buttons and the digital joystick share
// their setting words, so this window and the digital joystick's of the same axis keep their
// speed and their disable box alike.
#include "DeviceWindow.h"

class QCheckBox;
class QLineEdit;

namespace korval {

class FrmKdxToolSetJogButtons final : public DeviceWindow {
    Q_OBJECT
public:
    explicit FrmKdxToolSetJogButtons(int axis);

    QLineEdit* TxtVelocity() const { return velocity_; }
    QCheckBox* ChkDisableJogsJoystick() const { return disable_; }

    void PicSave_MouseDown() override;
    void ChkDisableJogsJoystick_Click();

private:
    QLineEdit* velocity_;
    QCheckBox* disable_;
};

} // namespace korval
