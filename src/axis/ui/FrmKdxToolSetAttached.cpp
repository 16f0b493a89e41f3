#include "FrmKdxToolSetAttached.h"
#include "AxisChoice.h"

#include "core/ui/KorvalServices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace korval {

namespace {

using D = AttachedDevice;

struct DeviceBox {
    D device;
    const char* name;
    const char* caption;
};

// In the order the frame lists them.
constexpr DeviceBox Boxes[] = {
    {D::Thumbwheel, "ChkThumbwheel", "Thumbwheel selector switch"},
    {D::AnalogInput, "ChkAnalogInput", "Analog Input"},
    {D::JoystickAnalog, "ChkJoystickAnalog", "Analog Joystick"},
    {D::JoystickDigital, "ChkJoystickDigital", "Digital Joystick"},
    {D::JogSpeeds, "ChkJogSpeeds", "Jog Button Speed"},
};

constexpr D Devices[] = {D::Thumbwheel, D::AnalogInput, D::JoystickAnalog, D::JoystickDigital,
                         D::JogSpeeds};

std::size_t slot(D device) {
    return static_cast<std::size_t>(device);
}

} // namespace

FrmKdxToolSetAttached::FrmKdxToolSetAttached(int axis)
    : FormBase("FrmKdxToolSetAttached", "Set Attached Devices") {
    auto* layout = new QVBoxLayout(this);
    axis_ = AddAxisChoice(*this, *layout);
    axis_->setCurrentIndex(axis - 1);

    auto* frame = new QGroupBox("Set Up the following devices", this);
    frame->setObjectName("FrameSetDevice");
    auto* column = new QVBoxLayout(frame);
    for (const auto& b : Boxes) {
        auto* box = new QCheckBox(b.caption, frame);
        box->setObjectName(b.name);
        column->addWidget(box);
        boxes_[slot(b.device)] = box;
        connect(box, &QCheckBox::toggled, this,
                [this, device = b.device](bool checked) { boxClicked(device, checked); });
    }
    layout->addWidget(frame);
    layout->addStretch(1);
    // The analog input has no window of its own: it cannot be picked.
    Box(D::AnalogInput)->setEnabled(false);
}

QCheckBox* FrmKdxToolSetAttached::Box(AttachedDevice device) const {
    return boxes_[slot(device)];
}

void FrmKdxToolSetAttached::boxClicked(AttachedDevice device, bool checked) {
    checks_.Click(device, checked);
    showChecks();
    ShowForms();
}

void FrmKdxToolSetAttached::showChecks() {
    for (const auto device : Devices) {
        auto* box = Box(device);
        if (box->isChecked() != checks_.Checked(device)) {
            const QSignalBlocker quiet(box); // the rule has already settled every box
            box->setChecked(checks_.Checked(device));
        }
    }
}

void FrmKdxToolSetAttached::ShowForms() {
    auto& app = App();
    const int axis = axis_->currentIndex() + 1;
    for (const auto device : {D::JogSpeeds, D::JoystickDigital, D::JoystickAnalog, D::Thumbwheel}) {
        if (auto* window = app.FindForm(DeviceWindowName(device, axis))) {
            window->HideWindow();
        }
    }
    for (const auto device : checks_.WindowsShown()) {
        if (auto* window = app.FindForm(DeviceWindowName(device, axis))) {
            window->ShowWindow();
        }
    }
}

void FrmKdxToolSetAttached::PrepareForSave() {
    for (const auto device : Devices) {
        checks_.Click(device, false);
    }
    showChecks();
}

} // namespace korval
