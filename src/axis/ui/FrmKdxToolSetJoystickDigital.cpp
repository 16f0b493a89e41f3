#include "FrmKdxToolSetJoystickDigital.h"

#include "FrmKdxToolSetJogButtons.h"

#include "axis/AttachedChoice.h"
#include "axis/DeviceSettings.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace korval {

namespace {

// "Velocity: [box] Steps / Sec" in a frame of its own.
QLineEdit* speedFrame(QWidget* parent, QBoxLayout* into, const char* frame, const char* caption,
                      const char* box, const char* label, const char* unitLabel) {
    auto* group = new QGroupBox(caption, parent);
    group->setObjectName(frame);
    auto* row = new QHBoxLayout(group);
    auto* before = new QLabel("Velocity:", group);
    before->setObjectName(label);
    auto* text = new QLineEdit(group);
    text->setObjectName(box);
    auto* after = new QLabel("Steps / Sec", group);
    after->setObjectName(unitLabel);
    row->addWidget(before);
    row->addWidget(text);
    row->addWidget(after);
    into->addWidget(group);
    return text;
}

} // namespace

FrmKdxToolSetJoystickDigital::FrmKdxToolSetJoystickDigital(int axis)
    : DeviceWindow("FrmKdxToolSetJoystickDigital", "Joystick Settings - Digital", axis) {
    auto* columns = new QHBoxLayout();
    auto* speeds = new QVBoxLayout();
    disable_ = new QCheckBox("Disable Jog Buttons and Digital Joystick", this);
    disable_->setObjectName("ChkDisableJogsJoystick");
    speeds->addWidget(disable_);
    primary_ = speedFrame(this, speeds, "FrameSpeedPrimary", "Primary Speed", "TxtSpeedPrimary",
                          "LblSpeedPrimary1", "LblSpeedPrimary1B");
    secondary_ = speedFrame(this, speeds, "FrameSpeedSecondary", "Secondary Speed",
                            "TxtSpeedSecondary", "LblSpeedSecondary1", "LblSpeedSecondary1B");
    columns->addLayout(speeds, 1);
    columns->addWidget(new DrawingBox("PicJoystick", Drawing::PicJoystick, this));
    Body()->addLayout(columns);
    connect(disable_, &QCheckBox::toggled, this, [this] { ChkDisableJogsJoystick_Click(); });
}

void FrmKdxToolSetJoystickDigital::PicSave_MouseDown() {
    SaveRound round(*this);
    auto primary = Latin1(primary_->text());
    auto secondary = Latin1(secondary_->text());
    const auto setting =
        DigitalJoystickSetting(AxisNumber, primary, secondary, disable_->isChecked());
    primary_->setText(Latin1(primary));
    secondary_->setText(Latin1(secondary));
    if (auto* jog = App().Form<FrmKdxToolSetJogButtons>(
            DeviceWindowName(AttachedDevice::JogSpeeds, AxisNumber))) {
        jog->TxtVelocity()->setText(Latin1(primary));
    }
    if (!setting) {
        App().prompts.Message(SpeedErrorText, SpeedErrorTitle, Prompts::Icon::Information,
                              Prompts::Buttons::Ok);
        return;
    }
    Send({*setting});
}

void FrmKdxToolSetJoystickDigital::ChkDisableJogsJoystick_Click() {
    const bool checked = disable_->isChecked();
    EnableControls({"TxtSpeedPrimary", "LblSpeedPrimary1", "LblSpeedPrimary1B", "TxtSpeedSecondary",
                    "LblSpeedSecondary1", "LblSpeedSecondary1B"},
                   !checked);
    if (App().Restoring()) {
        // The controller keeps what it was last sent, and may not be the last run's; the other
        // window's box comes back on its own.
        return;
    }
    PicSave_MouseDown();
    // Setting the other box to the value it holds does not click it, so the mirror ends there.
    if (auto* jog = App().Form<FrmKdxToolSetJogButtons>(
            DeviceWindowName(AttachedDevice::JogSpeeds, AxisNumber))) {
        jog->ChkDisableJogsJoystick()->setChecked(checked);
    }
}

} // namespace korval
