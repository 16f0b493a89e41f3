#pragma once
// A two-pane terminal to the controller: typed commands go out by the sending rules, and the
// driver's terminal text shows what came back. Options the user switches on show a transcript
// instead (what was sent, times, control characters), log the session to a file, and let
// Ctrl+Enter send; none of them changes what is sent.
#include "core/ui/FormBase.h"
#include "scripts/TerminalLog.h"
#include "scripts/TerminalTranscript.h"

#include <QStringList>

#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTimer;

namespace korval {

class CodeEditor;
class SentHighlighter;

class FrmKdxToolTerminal final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolTerminal();
    ~FrmKdxToolTerminal() override;

    void CmdSend_Click();
    void CmdClearBuffer_Click();
    void CmdClearBufferSent_Click();
    void CmdLogFile_Click();
    void Timer1_Timer();
    // The driver's terminal text, as its sink gives it.
    void ShowTerminal(const std::string& text);
    void SetActive(bool active); // the timer runs only while the window is the active one
    void PortOpenOrClosed(const std::string& state);
    void PrepareForSave() override;

    QPlainTextEdit* TxtReceive() const { return receive_; }
    CodeEditor* TxtSend() const { return send_; }
    QTimer* Timer1() const { return timer_; }
    QCheckBox* ChkShowSent() const { return showSent_; }
    QCheckBox* ChkTimeStamps() const { return times_; }
    QCheckBox* ChkShowCodes() const { return codes_; }
    QCheckBox* ChkLogSession() const { return logSession_; }
    QLineEdit* TxtLogFile() const { return logFile_; }
    QCheckBox* ChkCtrlEnterSends() const { return ctrlEnter_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildOptions();
    TerminalView view() const;
    void observe(); // the driver's terminal text as it is now
    void observe(const std::string& terminal);
    void redraw();
    void redraw(const std::string& terminal);
    void showText(const QString& text);
    void startLog();
    void stopLog();
    void tellLogLost();
    void recall(int step);

    QPlainTextEdit* receive_;
    CodeEditor* send_;
    QTimer* timer_;
    QTimer* logTimer_; // while logging, the session is followed whichever window is active
    QCheckBox* showSent_;
    QCheckBox* times_;
    QCheckBox* codes_;
    QCheckBox* logSession_;
    QLineEdit* logFile_;
    QPushButton* browseLog_;
    QCheckBox* ctrlEnter_;
    SentHighlighter* highlighter_;
    TerminalTranscript transcript_;
    TerminalLog log_;
    bool logLost_ = false;
    std::string current_;  // the port's text at this tick
    std::string previous_; // and at the tick before
    QString shown_;        // what the receive box holds, to append rather than redraw
    QStringList history_;  // texts sent before, for Ctrl+Up and Ctrl+Down
    int recallAt_ = 0;
    std::vector<QWidget*> buttons_; // usable only while the port is open
    int portSubscription_ = 0;
};

} // namespace korval
