#include "FrmKdxToolDetect.h"

#include "FrmKdxToolSetPort.h"

#include "core/MainWindowRules.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace korval {

FrmKdxToolDetect::FrmKdxToolDetect() : FormBase("FrmKdxToolDetect", "KDX Detect") {
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel("Last known Status:", this);
    label->setObjectName("LblStatus");
    status_ = new QLineEdit(this);
    status_->setObjectName("TxtStatus");
    status_->setReadOnly(true);
    abort_ = new PictureButton("PicAbort", Symbol::Abort, this);
    abort_->setToolTip("Abort the scan");
    auto* row = new QHBoxLayout();
    row->addWidget(status_, 1);
    row->addWidget(abort_);
    layout->addWidget(label);
    layout->addLayout(row);
    resize(380, 110);
    connect(abort_, &PictureButton::pressed, this, [this] { PicAbort_MouseDown(); });
    // The scan's progress: showing it is what lets events run while the scan blocks.
    progress_ = &App().mailbox.addBox(Mailbox::Mode::Replace, [this](const std::string& t) {
        status_->setText(Latin1(t));
        status_->repaint();
    });
    kdxChanged_ = App().kdx.KdxChanged.subscribe(
        [this](const std::string& word) { CommunicationsLost = word == "ERRORCOMMUNICATIONS"; });
}

FrmKdxToolDetect::~FrmKdxToolDetect() {
    progress_->setHandler({});
    App().kdx.KdxChanged.unsubscribe(kdxChanged_);
}

void FrmKdxToolDetect::DetectKdx() {
    auto& app = App();
    auto* autoDetect = app.mdi->Button("PicAutoDetect");
    app.Form<FrmKdxToolSetPort>("FrmKdxToolSetPort")->EndPortWait();
    ShowWindow();
    autoDetect->showDown();
    autoDetect->setEnabled(false);
    abort_->showUp();
    app.delay.TimeDelay(0.25);
    autoDetect->showUp();
    app.kdx.SetAbortStatus(0);

    app.kdx.DetectKdx(HighestPort, progress_->sink());
    app.mailbox.drain();

    autoDetect->setEnabled(true);
    abort_->setEnabled(true);
    app.kdx.VerifyStatus();
    HideWindow();
    auto* setPort = app.Form<FrmKdxToolSetPort>("FrmKdxToolSetPort");
    setPort->CmbSerialPort()->setCurrentIndex(app.kdx.GetPort());
    if (const int index = BaudIndex(app.kdx.GetBaud()); index > 0) {
        setPort->CmbBaudRate()->setCurrentIndex(index);
    }
    const bool open = app.kdx.IsSerialPortOpen();
    if (setPort->ChkPortOpen()->isChecked() != open) {
        setPort->ChkPortOpen()->setChecked(open);
    }
}

void FrmKdxToolDetect::PicAbort_MouseDown() {
    auto& app = App();
    app.kdx.SetAbortStatus(1);
    abort_->showDown();
    auto* autoDetect = app.mdi->Button("PicAutoDetect");
    autoDetect->showUp();
    autoDetect->setEnabled(true);
    app.delay.TimeDelay(0.25);
    abort_->showUp();
    app.mdi->raise();
    app.DetectAborted.raise();
}

} // namespace korval
