#include "FrmKdxToolSetPort.h"

#include "DeviceWatcher.h"
#include "link/system/SystemSerialPorts.h"

#include "core/Numbers.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "link/PortLabels.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QTimer>

#include <filesystem>
#include <system_error>

namespace korval {

namespace {

constexpr int LookForLostPortMs = 500;

} // namespace

FrmKdxToolSetPort::FrmKdxToolSetPort()
    : FormBase("FrmKdxToolSetPort", "KDX Tools - Port Settings") {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2, 0, 2, 0);
    lblPort_ = new QLabel("Serial Port:", this);
    lblPort_->setObjectName("LblSerialPort");
    port_ = new QComboBox(this);
    port_->setObjectName("CmbSerialPort");
    port_->addItem("");
    for (int n = 1; n <= PortMap::HighestPort; ++n) {
        port_->addItem(QString("Com%1").arg(n)); // the index is the port number
    }
    // The names make the entries long: the box shows the start, its list the whole.
    port_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    port_->setMinimumContentsLength(20);
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
    connect(port_, &QComboBox::currentIndexChanged, this,
            [this] { port_->setToolTip(port_->currentText()); });

    replugTimer_ = new QTimer(this);
    replugTimer_->setInterval(LookForLostPortMs);
    connect(replugTimer_, &QTimer::timeout, this, [this] { lookForLostPort(); });
    auto* devices = new DeviceWatcher(this);
    connect(devices, &DeviceWatcher::changed, this, [this] {
        RefreshPortNames();
        lookForLostPort();
    });
    RefreshPortNames();

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
        replug_.Closed(); // closed on purpose: a lost port is not opened again
        note("");
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
    if (open && !(replug_.IsOpen() && replug_.Port().number == port_->currentIndex())) {
        replug_.Opened(openedPort()); // asked afresh for each new port, not at every look
    }
    // While a lost port is awaited the box stays checked, and the port and baud stay as they
    // are: the user's wish for that port stands until the user clears the box.
    const bool held = open || replug_.Waiting();
    for (QWidget* w : std::initializer_list<QWidget*>{lblPort_, port_, lblBaud_, baud_}) {
        w->setEnabled(!held);
    }
    if (open_->isChecked() != held) {
        open_->setChecked(held);
    }
}

OpenedPort FrmKdxToolSetPort::openedPort() const {
    OpenedPort opened;
    opened.number = port_->currentIndex();
    opened.baud = static_cast<int>(Val(baud_->currentText().toStdString()));
    opened.device = PortMap().resolve(opened.number);
    if (const auto* adapter = AdapterAt(opened.device, SystemSerialPorts())) {
        opened.adapter = *adapter;
    }
    return opened;
}

void FrmKdxToolSetPort::RefreshPortNames() {
    std::vector<std::string> labels(PortMap::HighestPort + 1);
    for (auto& p : LabelPorts(PortMap(), SystemSerialPorts())) {
        labels[static_cast<std::size_t>(p.port)] = std::move(p.label);
    }
    for (int n = 1; n <= PortMap::HighestPort; ++n) {
        const auto& label = labels[static_cast<std::size_t>(n)];
        const auto text = label.empty() ? QString("Com%1").arg(n) : QString::fromStdString(label);
        if (port_->itemText(n) != text) {
            port_->setItemText(n, text);
        }
    }
    port_->setToolTip(port_->currentText());
    port_->view()->setMinimumWidth(port_->view()->sizeHintForColumn(0) + 24);
}

void FrmKdxToolSetPort::PortLost() {
    if (!replug_.Lost()) {
        return; // closed on purpose already
    }
    auto& app = App();
    note(replug_.LostText());
    app.mdi->Display().OnReport("ERRORCOMMUNICATIONS"); // the controller is out of reach
    app.kdx.IsSerialPortOpen(); // "Port Status: Closed", the terminal stops sending
    replugTimer_->start();
}

void FrmKdxToolSetPort::EndPortWait() {
    if (replug_.Waiting()) {
        note("");
    }
    replug_.Closed();
    replugTimer_->stop();
}

void FrmKdxToolSetPort::lookForLostPort() {
    if (!replug_.Waiting()) {
        replugTimer_->stop();
        return;
    }
    const int number = replug_.Port().number;
    const auto device = PortMap().resolve(number);
    std::error_code ec;
    const bool present = !device.empty() && std::filesystem::exists(device, ec);
    if (!replug_.Returned(present, AdapterAt(device, SystemSerialPorts()))) {
        return;
    }
    auto& kdx = App().kdx;
    kdx.PortOpen(number, replug_.Port().baud);
    if (replug_.Waiting()) {
        return; // there, but not to be opened yet: the next look tries again
    }
    replugTimer_->stop();
    kdx.BringOnline();
    note(replug_.BackText());
}

void FrmKdxToolSetPort::note(const std::string& text) {
    App().mdi->SetNote(QString::fromStdString(text));
}

} // namespace korval
