#include "FrmKdxToolSetJogButtons.h"

#include "FrmKdxToolSetJoystickDigital.h"

#include "axis/AttachedChoice.h"
#include "axis/DeviceSettings.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace korval {

FrmKdxToolSetJogButtons::FrmKdxToolSetJogButtons(int axis)
    : DeviceWindow("FrmKdxToolSetJogButtons", "Set Jog Buttons", axis) {
    disable_ = new QCheckBox("Disable Jog Buttons and Digital Joystick", this);
    disable_->setObjectName("ChkDisableJogsJoystick");
    auto* row = new QHBoxLayout();
    auto* before = new QLabel("Velocity:", this);
    before->setObjectName("LblVelocity1");
    velocity_ = new QLineEdit(this);
    velocity_->setObjectName("TxtVelocity");
    auto* after = new QLabel("Steps / Sec", this);
    after->setObjectName("LblVelocity2");
    row->addWidget(before);
    row->addWidget(velocity_);
    row->addWidget(after);
    Body()->addWidget(disable_);
    Body()->addLayout(row);
    connect(disable_, &QCheckBox::toggled, this, [this] { ChkDisableJogsJoystick_Click(); });
}

void FrmKdxToolSetJogButtons::PicSave_MouseDown() {
    SaveRound round(*this);
    auto velocity = Latin1(velocity_->text());
    const auto setting = JogButtonsSetting(AxisNumber, velocity, disable_->isChecked());
    velocity_->setText(Latin1(velocity));
    if (auto* digital = App().Form<FrmKdxToolSetJoystickDigital>(
            DeviceWindowName(AttachedDevice::JoystickDigital, AxisNumber))) {
        digital->TxtSpeedPrimary()->setText(Latin1(velocity));
    }
    Send({setting});
}

void FrmKdxToolSetJogButtons::ChkDisableJogsJoystick_Click() {
    const bool checked = disable_->isChecked();
    EnableControls({"TxtVelocity", "LblVelocity1", "LblVelocity2"}, !checked);
    if (App().Restoring()) {
        // The controller keeps what it was last sent, and may not be the last run's; the other
        // window's box comes back on its own.
        return;
    }
    PicSave_MouseDown();
    // Setting the other box to the value it holds does not click it, so the mirror ends there.
    if (auto* digital = App().Form<FrmKdxToolSetJoystickDigital>(
            DeviceWindowName(AttachedDevice::JoystickDigital, AxisNumber))) {
        digital->ChkDisableJogsJoystick()->setChecked(checked);
    }
}

} // namespace korval
