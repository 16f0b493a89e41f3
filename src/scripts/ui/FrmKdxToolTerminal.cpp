#include "FrmKdxToolTerminal.h"

#include "CodeEditor.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/Latin1.h"
#include "scripts/TerminalSend.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

namespace korval {

namespace {

QString display(const std::string& terminal) {
    auto text = Latin1(terminal);
    text.replace("\r\n", "\n");
    text.replace('\r', '\n');
    return text;
}

bool portOpen() {
    return App().PortIsOpen();
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
    grid->addWidget(lblReceive, 0, 0);
    grid->addWidget(receive_, 1, 0);
    grid->addWidget(clearReceive, 1, 1, Qt::AlignTop);
    grid->addWidget(lblSend, 2, 0);
    grid->addWidget(send_, 3, 0);
    grid->addWidget(clearSend, 3, 1, Qt::AlignTop);
    grid->addWidget(sendButton, 4, 0, 1, 2, Qt::AlignRight);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(3, 1);
    resize(620, 460);

    timer_ = new QTimer(this);
    timer_->setObjectName("Timer1");
    timer_->setInterval(100);
    connect(timer_, &QTimer::timeout, this, [this] { Timer1_Timer(); });
    connect(sendButton, &QPushButton::clicked, this, [this] { CmdSend_Click(); });
    connect(clearReceive, &QPushButton::clicked, this, [this] { CmdClearBuffer_Click(); });
    connect(clearSend, &QPushButton::clicked, this, [this] { CmdClearBufferSent_Click(); });
    // Load: both boxes empty, the timer off until the window is active. While no port is
    // open the terminal cannot send.
    buttons_ = {clearReceive, sendButton, clearSend};
    PortOpenOrClosed(App().kdx.IsSerialPortOpen() ? "Open" : "Closed");
    portSubscription_ =
        App().kdx.PortOpenOrClosed.subscribe([this](const std::string& s) { PortOpenOrClosed(s); });
}

FrmKdxToolTerminal::~FrmKdxToolTerminal() {
    App().kdx.PortOpenOrClosed.unsubscribe(portSubscription_);
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

void FrmKdxToolTerminal::CmdSend_Click() {
    if (!portOpen()) {
        return;
    }
    const QString typed = send_->toPlainText();
    SendTerminalText(Latin1(typed), App().kdx);
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
    receive_->clear();
    shown_.clear();
    previous_.clear();
}

void FrmKdxToolTerminal::CmdClearBufferSent_Click() {
    send_->clear();
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
    const auto text = display(terminal);
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
    if (watched == send_ && (key->modifiers() & Qt::ControlModifier) &&
        (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
        recall(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    return FormBase::eventFilter(watched, event);
}

} // namespace korval
