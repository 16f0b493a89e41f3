#include "FrmKdxDriverRecovery.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/PictureButton.h"

#include <QHBoxLayout>
#include <QLabel>

namespace korval {

FrmKdxDriverRecovery::FrmKdxDriverRecovery()
    : FormBase("FrmKdxDriverRecovery", "Driver Recovery Tools") {
    auto* layout = new QHBoxLayout(this);
    recover_ = new PictureButton("PicKdxErrorRecoverButton", Symbol::Recover, this);
    recover_->setToolTip("Free the driver and clear the controller's error");
    layout->addWidget(recover_);
    layout->addWidget(new QLabel("Free a hung driver", this));
    connect(recover_, &PictureButton::pressed, this,
            [this] { PicKdxErrorRecoverButton_MouseDown(); });
}

void FrmKdxDriverRecovery::PicKdxErrorRecoverButton_MouseDown() {
    auto& app = App();
    recover_->showDown();
    app.kdx.KillProgram();
    app.kdx.EscapeDriverFunctionTrue();
    app.delay.TimeDelay(0.1);
    app.kdx.EscapeDriverFunctionFalse();
    recover_->showUp();
    app.kdx.VerifyStatus();
}

} // namespace korval
