#pragma once
// Which port and baud rate the program uses; embedded in the main window's tool bar. The port
// list names the device behind each number, and a port whose device goes away while open is
// opened again by itself when the device returns.
#include "core/ui/FormBase.h"
#include "link/PortReplug.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QTimer;

namespace korval {

class FrmKdxToolSetPort final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolSetPort();
    ~FrmKdxToolSetPort() override;

    QComboBox* CmbSerialPort() const { return port_; }
    QComboBox* CmbBaudRate() const { return baud_; }
    QCheckBox* ChkPortOpen() const { return open_; }
    QCheckBox* ChkExactTiming() const { return exact_; }

    void ChkPortOpen_Click();
    // Start-up: the box checked, which opens the restored port if it is not open yet.
    void OpenRestoredPort();
    void PortChanged(const std::string& port, const std::string& baud);
    void PortOpenOrClosed(const std::string& state);

    // The list's names afresh: the device behind each number, and a USB adapter's description.
    void RefreshPortNames();
    // The driver reported that the open port's device went away.
    void PortLost();
    // A scan takes the port in hand: a lost port is no longer waited for.
    void EndPortWait();
    bool WaitingForPort() const { return replug_.Waiting(); }

private:
    OpenedPort openedPort() const;
    void lookForLostPort();
    void note(const std::string& text);

    QLabel* lblPort_;
    QLabel* lblBaud_;
    QComboBox* port_;
    QComboBox* baud_;
    QCheckBox* open_;
    QTimer* replugTimer_;
    PortReplug replug_;
    QCheckBox* exact_;
    int subscriptions_[2] = {0, 0};
};

} // namespace korval
