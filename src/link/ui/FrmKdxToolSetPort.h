#pragma once
// Which port and baud rate the program uses; embedded in the main window's tool bar.
#include "core/ui/FormBase.h"

class QCheckBox;
class QComboBox;
class QLabel;

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

private:
    QLabel* lblPort_;
    QLabel* lblBaud_;
    QComboBox* port_;
    QComboBox* baud_;
    QCheckBox* open_;
    QCheckBox* exact_;
    int subscriptions_[2] = {0, 0};
};

} // namespace korval
