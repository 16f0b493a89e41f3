#include "DeviceWindow.h"
#include "AxisChoice.h"

#include "axis/DeviceSettings.h"
#include "core/ui/FormControls.h"
#include "core/ui/KorvalServices.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace korval {

DeviceWindow::DeviceWindow(const QString& name, const QString& caption, int axis)
    : FormBase(name, caption) {
    auto* layout = new QVBoxLayout(this);
    axis_ = AddAxisChoice(*this, *layout);

    body_ = new QVBoxLayout();
    layout->addLayout(body_, 1);

    auto* saveRow = new QHBoxLayout();
    save_ = new PictureButton("PicSave", Symbol::SaveScript, this);
    save_->setToolTip("Send these settings to the KDX and store them");
    confirmation_ = new ConfirmationLabel(this);
    saveRow->addWidget(save_);
    saveRow->addWidget(confirmation_, 1);
    layout->addLayout(saveRow);

    axis_->setCurrentIndex(axis - 1);
    CmbAxis_Click();
    connect(axis_, &QComboBox::currentIndexChanged, this, [this] { CmbAxis_Click(); });
    connect(save_, &PictureButton::pressed, this, [this] { PicSave_MouseDown(); });
}

void DeviceWindow::CmbAxis_Click() {
    AxisNumber = axis_->currentIndex() + 1;
}

void DeviceWindow::EnableControls(std::initializer_list<const char*> controls, bool enabled) {
    const auto set = enabled ? &FormControls::EnableObj : &FormControls::DisableObj;
    for (const char* control : controls) {
        set(GetVirtualName(), control);
    }
}

void DeviceWindow::Send(const std::vector<std::string>& settings) {
    confirmation_->Show(SendSettings(App().kdx, settings));
}

DeviceWindow::SaveRound::SaveRound(DeviceWindow& window) : window_(window) {
    window.save_->showDown();
    window.save_->setEnabled(false); // before the pause, whose events could bring a second press
    App().delay.TimeDelay(0.25);
}

DeviceWindow::SaveRound::~SaveRound() {
    window_.save_->setEnabled(true);
    window_.save_->showUp();
    window_.repaint();
}

} // namespace korval
