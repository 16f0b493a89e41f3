#include "FrmKdxToolTerminal.h"

#include "CodeEditor.h"
#include "SentHighlighter.h"

#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "scripts/ScriptText.h"
#include "scripts/TerminalSend.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

#include <chrono>
#include <filesystem>

namespace korval {

namespace {

const char* const LogTitle = "KDX Terminal Log";

QString display(const std::string& terminal) {
    auto text = Latin1(terminal);
    text.replace("\r\n", "\n");
    text.replace('\r', '\n');
    return text;
}

bool portOpen() {
    return App().PortIsOpen();
}

std::string now() {
    return ClockText(std::chrono::system_clock::now());
}

// Beside the settings file, where the user's own files of the program are.
std::string defaultLogFile() {
    return (std::filesystem::path(App().folders.settingsFile).parent_path() /
            "KDX Terminal Log.txt")
        .string();
}

QCheckBox* option(const char* name, const char* caption, const char* tip, QWidget* parent) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    box->setToolTip(tip);
    return box;
}

} // namespace

FrmKdxToolTerminal::FrmKdxToolTerminal() : FormBase("FrmKdxToolTerminal", "KDX Terminal") {
    auto* grid = new QGridLayout(this);
    auto* lblReceive =
        new QLabel("KDX:   (Extra Characters that the user did not type may appear)", this);
    lblReceive->setObjectName("LblReceive");
    receive_ = new QPlainTextEdit(this);
    receive_->setObjectName("TxtReceive");
    receive_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    receive_->setUndoRedoEnabled(false);
    receive_->installEventFilter(this);
    highlighter_ = new SentHighlighter(receive_->document());
    auto* clearReceive = new QPushButton("<--- Clear", this);
    clearReceive->setObjectName("CmdClearBuffer");
    auto* lblSend = new QLabel("Text to Send", this);
    lblSend->setObjectName("LblSend");
    send_ = new CodeEditor("TxtSend", this);
    send_->installEventFilter(this);
    send_->setToolTip("Ctrl+Up and Ctrl+Down bring back what was sent before");
    auto* clearSend = new QPushButton("<--- Clear", this);
    clearSend->setObjectName("CmdClearBufferSent");
    auto* sendButton = new QPushButton("Send to KDX", this);
    sendButton->setObjectName("CmdSend");
    ctrlEnter_ = option("ChkCtrlEnterSends", "Ctrl+Enter Sends",
                        "Ctrl+Enter sends the text; Enter alone still adds a line", this);
    auto* sendRow = new QHBoxLayout();
    sendRow->addWidget(ctrlEnter_);
    sendRow->addStretch(1);
    sendRow->addWidget(sendButton);
    grid->addWidget(lblReceive, 0, 0);
    grid->addWidget(receive_, 1, 0);
    grid->addWidget(clearReceive, 1, 1, Qt::AlignTop);
    grid->addWidget(buildOptions(), 2, 0, 1, 2);
    grid->addWidget(lblSend, 3, 0);
    grid->addWidget(send_, 4, 0);
    grid->addWidget(clearSend, 4, 1, Qt::AlignTop);
    grid->addLayout(sendRow, 5, 0, 1, 2);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(4, 1);
    resize(660, 520);

    timer_ = new QTimer(this);
    timer_->setObjectName("Timer1");
    timer_->setInterval(100);
    connect(timer_, &QTimer::timeout, this, [this] { Timer1_Timer(); });
    logTimer_ = new QTimer(this);
    logTimer_->setInterval(100);
    connect(logTimer_, &QTimer::timeout, this, [this] { observe(); });
    connect(sendButton, &QPushButton::clicked, this, [this] { CmdSend_Click(); });
    connect(clearReceive, &QPushButton::clicked, this, [this] { CmdClearBuffer_Click(); });
    connect(clearSend, &QPushButton::clicked, this, [this] { CmdClearBufferSent_Click(); });
    transcript_.OnLineDone([this](const TranscriptLine& line) {
        if (log_.IsOpen() && !log_.Write(line)) {
            logLost_ = true; // told once the line's work is done
        }
    });
    // Load: both boxes empty, the timer off until the window is active. While no port is
    // open the terminal cannot send.
    buttons_ = {clearReceive, sendButton, clearSend};
    PortOpenOrClosed(App().kdx.IsSerialPortOpen() ? "Open" : "Closed");
    portSubscription_ =
        App().kdx.PortOpenOrClosed.subscribe([this](const std::string& s) { PortOpenOrClosed(s); });
}

QWidget* FrmKdxToolTerminal::buildOptions() {
    auto* options = new QWidget(this);
    auto* rows = new QGridLayout(options);
    rows->setContentsMargins(0, 0, 0, 0);
    showSent_ =
        option("ChkShowSent", "Show Sent Text",
               "What was sent, marked \"> \", between what the KDX sent, marked \"< \"", options);
    times_ = option("ChkTimeStamps", "Time Stamps",
                    "Each line begins with the time its first character came or went", options);
    codes_ = option("ChkShowCodes", "Show Control Codes",
                    "Control characters by name (<CR>, <LF>) and other bytes in hexadecimal "
                    "(<CB>)",
                    options);
    logSession_ = option("ChkLogSession", "Log Session to File:",
                         "Every line sent and received, with its time, added to the file", options);
    logFile_ = new QLineEdit(options);
    logFile_->setObjectName("TxtLogFile");
    browseLog_ = new QPushButton("...", options);
    browseLog_->setObjectName("CmdLogFile");
    browseLog_->setToolTip("Choose the log file");
    rows->addWidget(showSent_, 0, 0);
    rows->addWidget(times_, 0, 1);
    rows->addWidget(codes_, 0, 2, 1, 2);
    rows->addWidget(logSession_, 1, 0);
    rows->addWidget(logFile_, 1, 1, 1, 2);
    rows->addWidget(browseLog_, 1, 3);
    rows->setColumnStretch(2, 1);
    for (auto* box : {showSent_, times_, codes_}) {
        connect(box, &QCheckBox::toggled, this, [this] { redraw(); });
    }
    connect(logSession_, &QCheckBox::toggled, this,
            [this](bool on) { on ? startLog() : stopLog(); });
    connect(browseLog_, &QPushButton::clicked, this, [this] { CmdLogFile_Click(); });
    return options;
}

FrmKdxToolTerminal::~FrmKdxToolTerminal() {
    App().kdx.PortOpenOrClosed.unsubscribe(portSubscription_);
    transcript_.Finish();
    log_.Close();
}

void FrmKdxToolTerminal::PortOpenOrClosed(const std::string& state) {
    for (QWidget* w : buttons_) {
        w->setEnabled(state == "Open");
    }
}

void FrmKdxToolTerminal::SetActive(bool active) {
    if (active && IsShown()) {
        timer_->start();
    } else {
        timer_->stop();
    }
}

TerminalView FrmKdxToolTerminal::view() const {
    return {showSent_->isChecked(), times_->isChecked(), codes_->isChecked()};
}

void FrmKdxToolTerminal::CmdSend_Click() {
    if (!portOpen()) {
        return;
    }
    const QString typed = send_->toPlainText();
    const auto text = Latin1(typed);
    observe(); // what came before the sending is shown before it
    transcript_.Sent(PlanTerminalSend(WithCrLf(text)).toSend, now());
    tellLogLost();
    SendTerminalText(text, App().kdx);
    if (showSent_->isChecked()) {
        redraw();
    }
    if (!typed.isEmpty() && (history_.isEmpty() || history_.back() != typed)) {
        history_.append(typed);
    }
    recallAt_ = static_cast<int>(history_.size());
}

void FrmKdxToolTerminal::CmdClearBuffer_Click() {
    if (portOpen()) {
        App().kdx.ClearPortChars();
        App().kdx.TerminalClear();
    }
    transcript_.Clear();
    tellLogLost();
    receive_->clear();
    shown_.clear();
    previous_.clear();
}

void FrmKdxToolTerminal::CmdClearBufferSent_Click() {
    send_->clear();
}

void FrmKdxToolTerminal::CmdLogFile_Click() {
    auto& app = App();
    const auto current = Latin1(logFile_->text());
    const auto chosen = app.prompts.SaveFile(
        {LogTitle, "Text Files (*.txt)|*.txt|",
         std::filesystem::path(current.empty() ? defaultLogFile() : current).parent_path().string(),
         std::filesystem::path(current).filename().string()});
    if (chosen && !chosen->empty()) {
        logFile_->setText(Latin1(TxtFileName(*chosen)));
    }
}

void FrmKdxToolTerminal::Timer1_Timer() {
    auto& app = App();
    QCoreApplication::processEvents();
    if (!IsShown() || app.runFlag || app.stopFlag || app.lineHeld > 0) {
        return;
    }
    current_ = app.kdx.ReadReplyFromPort();
    if (current_ != previous_) {
        ShowTerminal(app.kdx.TerminalGet());
    }
    previous_ = app.kdx.ReadReplyFromPort();
}

void FrmKdxToolTerminal::ShowTerminal(const std::string& terminal) {
    observe(terminal);
    redraw(terminal);
}

void FrmKdxToolTerminal::observe(const std::string& terminal) {
    transcript_.Observe(terminal, now());
    tellLogLost();
}

void FrmKdxToolTerminal::observe() {
    observe(App().kdx.TerminalGet());
}

void FrmKdxToolTerminal::redraw(const std::string& terminal) {
    const auto options = view();
    highlighter_->setActive(options.sent);
    showText(options.Any() ? Latin1(transcript_.Render(options)) : display(terminal));
}

void FrmKdxToolTerminal::redraw() {
    redraw(App().kdx.TerminalGet());
}

void FrmKdxToolTerminal::showText(const QString& text) {
    if (text == shown_) {
        return;
    }
    // Most ticks only add to the end: append that, so a busy line does not redraw it all.
    if (!shown_.isEmpty() && text.startsWith(shown_)) {
        auto cursor = receive_->textCursor();
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(text.mid(shown_.size()));
    } else {
        receive_->setPlainText(text);
    }
    shown_ = text;
    receive_->moveCursor(QTextCursor::End);
    receive_->verticalScrollBar()->setValue(receive_->verticalScrollBar()->maximum());
}

void FrmKdxToolTerminal::startLog() {
    if (logFile_->text().trimmed().isEmpty()) {
        logFile_->setText(Latin1(defaultLogFile()));
    }
    const auto path = Latin1(logFile_->text().trimmed());
    if (!log_.Open(path, std::chrono::system_clock::now())) {
        App().prompts.Message("The session cannot be logged to " + path + ": " + log_.Problem(),
                              LogTitle, Prompts::Icon::Warning, Prompts::Buttons::Ok);
        const QSignalBlocker quiet(logSession_);
        logSession_->setChecked(false);
        return;
    }
    logFile_->setEnabled(false);
    browseLog_->setEnabled(false);
    logTimer_->start();
}

void FrmKdxToolTerminal::stopLog() {
    logTimer_->stop();
    if (log_.IsOpen()) {
        observe();
        transcript_.Finish(); // the line under way is kept as it stands
    }
    log_.Close();
    logFile_->setEnabled(true);
    browseLog_->setEnabled(true);
}

void FrmKdxToolTerminal::tellLogLost() {
    if (!logLost_) {
        return;
    }
    logLost_ = false;
    logSession_->setChecked(false);
    App().prompts.Message("The session log stopped: the file " + Latin1(logFile_->text()) +
                              " could not be written (" + log_.Problem() + ").",
                          LogTitle, Prompts::Icon::Warning, Prompts::Buttons::Ok);
}

void FrmKdxToolTerminal::PrepareForSave() {
    if (log_.IsOpen()) {
        observe(); // the log ends with the last that came
        transcript_.Finish();
    }
}

void FrmKdxToolTerminal::recall(int step) {
    if (history_.isEmpty()) {
        return;
    }
    recallAt_ = std::clamp(recallAt_ + step, 0, static_cast<int>(history_.size()));
    send_->setPlainText(recallAt_ < history_.size() ? history_[recallAt_] : QString());
    send_->moveCursor(QTextCursor::End);
}

bool FrmKdxToolTerminal::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return FormBase::eventFilter(watched, event);
    }
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == receive_) {
        // The receive box takes no typing: the key goes nowhere and the caret to the send box.
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
            return false;
        }
        send_->setFocus();
        return true;
    }
    const bool ctrl = key->modifiers().testFlag(Qt::ControlModifier);
    if (watched == send_ && ctrl && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
        recall(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    if (watched == send_ && ctrl && ctrlEnter_->isChecked() &&
        (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
        CmdSend_Click();
        return true;
    }
    return FormBase::eventFilter(watched, event);
}

} // namespace korval
