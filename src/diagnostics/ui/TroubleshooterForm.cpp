#include "TroubleshooterForm.h"

#include "ScanLine.h"

#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/Lamp.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace korval {

namespace {

const QColor LampRed(225, 30, 30);

QLabel* label(const QString& name, const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    return l;
}

} // namespace

TroubleshooterForm::TroubleshooterForm(const QString& name, TroubleshooterKind kind,
                                       const TroubleshooterNames& names)
    : FormBase(name, FaceOf(kind).caption), reading_(kind, App().kdx, App().delay) {
    const auto& face = FaceOf(kind);
    auto* frame = new QGroupBox(face.frameCaption, this);
    frame->setObjectName("FrameBits");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel("Bit", frame), 0, 0);
    for (int bit = 0; bit < TroubleshooterReading::Bits; ++bit) {
        const auto item = QString::number(bit + 1);
        const auto at = static_cast<std::size_t>(bit);
        lamps_[at] = new Lamp(names.lamp + item, LampRed, frame);
        values_[at] = label(names.value + item, "", frame);
        values_[at]->setMinimumWidth(12);
        grid->addWidget(label(names.bitDigit + item, QString::number(bit), frame), bit + 1, 0);
        grid->addWidget(lamps_[at], bit + 1, 1);
        grid->addWidget(values_[at], bit + 1, 2);
        grid->addWidget(label(names.text + item, face.rows[at], frame), bit + 1, 3);
    }
    grid->setColumnStretch(3, 1);

    timeline_ = new QPlainTextEdit(this);
    timeline_->setObjectName("TxtTimeline");
    timeline_->setReadOnly(true);
    timeline_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    timeline_->setMaximumBlockCount(static_cast<int>(BitTimeline::Capacity));
    timeline_->setToolTip("Changes seen since the window was opened: time, bit, old -> new");
    auto* copy = new QPushButton("Copy", this);
    copy->setObjectName("CmdCopyTimeline");
    copy->setToolTip("Copy the changes to the clipboard");
    buttons_ = new QHBoxLayout;
    buttons_->addWidget(new QLabel("Changes", this), 1);
    buttons_->addWidget(copy);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(label("LblNote", face.note, this));
    layout->addLayout(buttons_);
    layout->addWidget(timeline_, 1);
    resize(kind == TroubleshooterKind::MultifunctionIO ? 560 : 380, 520);

    timer_ = new QTimer(this);
    timer_->setObjectName(names.timer);
    connect(timer_, &QTimer::timeout, this, [this] { ReadTimer_Timer(); });
    connect(copy, &QPushButton::clicked, this, [this] { CmdCopyTimeline_Click(); });
    portSubscription_ = App().kdx.PortOpenOrClosed.subscribe(
        [this](const std::string& state) { portOpenOrClosed(state); });
}

TroubleshooterForm::~TroubleshooterForm() {
    App().kdx.PortOpenOrClosed.unsubscribe(portSubscription_);
}

void TroubleshooterForm::StartPolling(int intervalMs) {
    intervalMs_ = intervalMs;
    timer_->setInterval(intervalMs);
    reading_.Restart();
    timeline_->clear();
    timelineSeen_ = 0;
    clearFirst_ = true;
    resume();
}

void TroubleshooterForm::resume() {
    timer_->start();
    if (!hold_) {
        hold_.emplace();
    }
}

void TroubleshooterForm::StopPolling() {
    timer_->stop();
    hold_.reset();
}

bool TroubleshooterForm::Polling() const {
    return timer_->isActive();
}

void TroubleshooterForm::ReadTimer_Timer() {
    if (ScanLine::Tick::UnderWay()) {
        return; // the tick's wait lets the timer fire again: that tick is skipped
    }
    auto& app = App();
    if (!IsShown() || !app.PortIsOpen()) {
        StopPolling();
        return;
    }
    if (ScanLine::Busy()) {
        clearFirst_ = true;
        return; // a refresh or a scan has the line: keep out of its way
    }
    const auto outcome = [this, &app] {
        const ScanLine::Tick tick;
        if (std::exchange(clearFirst_, false)) {
            // The last reply of another reader may still wait at the port, and the forms that
            // do not clear before they ask would take it for a reading.
            app.kdx.ClearPortChars();
        }
        return reading_.Tick();
    }();
    if (outcome == TickOutcome::OldFirmware) {
        StopPolling();
        app.prompts.Message(TroubleshooterReading::OldFirmwareMessage,
                            TroubleshooterReading::OldFirmwareTitle, Prompts::Icon::Information,
                            Prompts::Buttons::Ok);
        HideWindow();
        return;
    }
    paint();
}

void TroubleshooterForm::paint() {
    for (int bit = 0; bit < TroubleshooterReading::Bits; ++bit) {
        // Each only on a change, so that nothing flickers at every tick.
        BitLamp(bit)->setLit(reading_.Lamp(bit) == LampPicture::Lit);
        const auto value = Latin1(reading_.Label(bit));
        if (BitValue(bit)->text() != value) {
            BitValue(bit)->setText(value);
        }
    }
    const auto& face = FaceOf(reading_.Kind());
    for (const auto& change : reading_.Timeline().NewSince(timelineSeen_)) {
        timeline_->appendPlainText(Latin1(TimelineLine(change, face)));
    }
}

void TroubleshooterForm::CmdCopyTimeline_Click() {
    auto text = Latin1(TimelineText(reading_.Timeline(), FaceOf(reading_.Kind())));
    text.replace("\r\n", "\n");
    QApplication::clipboard()->setText(text);
}

void TroubleshooterForm::PrepareForSave() {
    timeline_->clear();
}

void TroubleshooterForm::AddButton(QWidget* button) {
    buttons_->insertWidget(1, button);
}

void TroubleshooterForm::hideEvent(QHideEvent* event) {
    StopPolling();
    FormBase::hideEvent(event);
}

void TroubleshooterForm::portOpenOrClosed(const std::string& state) {
    if (state != "Open") {
        StopPolling();
    } else if (IsShown() && intervalMs_ > 0) {
        resume(); // the window still open when the port comes back goes on, timeline and all
    }
}

} // namespace korval
