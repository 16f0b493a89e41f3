#include "FrmKdxToolSetPort.h"

#include "core/Numbers.h"
#include "core/ui/KorvalServices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace korval {

FrmKdxToolSetPort::FrmKdxToolSetPort()
    : FormBase("FrmKdxToolSetPort", "KDX Tools - Port Settings") {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2, 0, 2, 0);
    lblPort_ = new QLabel("Serial Port:", this);
    lblPort_->setObjectName("LblSerialPort");
    port_ = new QComboBox(this);
    port_->setObjectName("CmbSerialPort");
    port_->addItem("");
    for (int n = 1; n <= 255; ++n) {
        port_->addItem(QString("Com%1").arg(n)); // the index is the port number
    }
    lblBaud_ = new QLabel("BaudRate:", this);
    lblBaud_->setObjectName("LblBaudRate");
    baud_ = new QComboBox(this);
    baud_->setObjectName("CmbBaudRate");
    baud_->addItems({"", "9600", "19200", "38400"});
    open_ = new QCheckBox("Port Open", this);
    open_->setObjectName("ChkPortOpen");
    for (QWidget* w : std::initializer_list<QWidget*>{lblPort_, port_, lblBaud_, baud_, open_}) {
        row->addWidget(w);
    }
    port_->setCurrentIndex(1);
    baud_->setCurrentIndex(1);
    {
        // Checked as designed; start-up opens the port once the saved settings are back.
        const QSignalBlocker quiet(open_);
        open_->setChecked(true);
    }
    connect(open_, &QCheckBox::toggled, this, [this] { ChkPortOpen_Click(); });
    // Queries wait their full fixed time, for a controller that pauses inside its replies.
    exact_ = new QCheckBox("Exact timing", this);
    exact_->setObjectName("ChkExactTiming");
    exact_->setToolTip("Wait the full fixed time for every reply, for a controller that pauses "
                       "inside its replies");
    row->addWidget(exact_);
    connect(exact_, &QCheckBox::toggled, this,
            [](bool checked) { App().replyTiming.exact = checked; });

    auto& kdx = App().kdx;
    subscriptions_[0] = kdx.PortChanged.subscribe(
        [this](const std::string& p, const std::string& b) { PortChanged(p, b); });
    subscriptions_[1] =
        kdx.PortOpenOrClosed.subscribe([this](const std::string& s) { PortOpenOrClosed(s); });
}

FrmKdxToolSetPort::~FrmKdxToolSetPort() {
    auto& kdx = App().kdx;
    kdx.PortChanged.unsubscribe(subscriptions_[0]);
    kdx.PortOpenOrClosed.unsubscribe(subscriptions_[1]);
}

void FrmKdxToolSetPort::ChkPortOpen_Click() {
    auto& kdx = App().kdx;
    if (!open_->isChecked()) {
        if (kdx.IsSerialPortOpen()) {
            kdx.PortClose();
        }
    } else if (!kdx.IsSerialPortOpen()) {
        kdx.PortOpen(port_->currentIndex(),
                     static_cast<std::int32_t>(Val(baud_->currentText().toStdString())));
    }
}

void FrmKdxToolSetPort::OpenRestoredPort() {
    {
        const QSignalBlocker quiet(open_);
        open_->setChecked(true);
    }
    ChkPortOpen_Click();
}

void FrmKdxToolSetPort::PortChanged(const std::string& port, const std::string& baud) {
    const int number = static_cast<int>(Val(port));
    if (number != port_->currentIndex()) {
        port_->setCurrentIndex(number);
    }
    for (int i = 0; i <= 3; ++i) {
        if (baud_->itemText(i).toStdString() == baud && baud_->currentIndex() != i) {
            baud_->setCurrentIndex(i);
        }
    }
}

void FrmKdxToolSetPort::PortOpenOrClosed(const std::string& state) {
    const bool open = state == "Open";
    for (QWidget* w : std::initializer_list<QWidget*>{lblPort_, port_, lblBaud_, baud_}) {
        w->setEnabled(!open);
    }
    if (open_->isChecked() != open) {
        open_->setChecked(open);
    }
}

} // namespace korval
