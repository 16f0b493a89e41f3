#include "FrmKdxToolSetThumbwheel.h"

#include "axis/DeviceSettings.h"
#include "core/ui/KorvalServices.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace korval {

FrmKdxToolSetThumbwheel::FrmKdxToolSetThumbwheel()
    : FormBase("FrmKdxToolSetThumbwheel", "Thumbwheel Selector Switch") {
    auto* layout = new QVBoxLayout(this);
    use_ = new QCheckBox("Use Thumbwheel to select between programs 0,1,2, or 3", this);
    use_->setObjectName("ChkUseThumbwheel");
    confirmation_ = new ConfirmationLabel(this);
    layout->addWidget(use_);
    layout->addWidget(confirmation_);
    layout->addStretch(1);
    connect(use_, &QCheckBox::toggled, this, [this] { ChkUseThumbwheel_Click(); });
}

void FrmKdxToolSetThumbwheel::ChkUseThumbwheel_Click() {
    if (App().Restoring()) {
        return; // the controller keeps what it was last sent, and may not be the last run's
    }
    confirmation_->Show(SendSetting(App().kdx, ThumbwheelSetting(use_->isChecked())));
}

} // namespace korval
