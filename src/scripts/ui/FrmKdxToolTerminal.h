#pragma once
// A two-pane terminal to the controller: typed commands go out by the sending rules, and the
// driver's terminal text shows what came back.
#include "core/ui/FormBase.h"

#include <QStringList>

#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTimer;

namespace korval {

class CodeEditor;

class FrmKdxToolTerminal final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolTerminal();
    ~FrmKdxToolTerminal() override;

    void CmdSend_Click();
    void CmdClearBuffer_Click();
    void CmdClearBufferSent_Click();
    void Timer1_Timer();
    // The driver's terminal text, as its sink gives it.
    void ShowTerminal(const std::string& text);
    void SetActive(bool active); // the timer runs only while the window is the active one
    void PortOpenOrClosed(const std::string& state);

    QPlainTextEdit* TxtReceive() const { return receive_; }
    CodeEditor* TxtSend() const { return send_; }
    QTimer* Timer1() const { return timer_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void recall(int step);

    QPlainTextEdit* receive_;
    CodeEditor* send_;
    QTimer* timer_;
    std::string current_;  // the port's text at this tick
    std::string previous_; // and at the tick before
    QString shown_;        // what the receive box holds, to append rather than redraw
    QStringList history_;  // texts sent before, for Ctrl+Up and Ctrl+Down
    int recallAt_ = 0;
    std::vector<QWidget*> buttons_; // usable only while the port is open
    int portSubscription_ = 0;
};

} // namespace korval
