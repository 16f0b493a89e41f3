#include "AdvStepFrame.h"

#include "axis/ClsKdxAxis.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/PictureButton.h"
#include "core/ui/TextBoxKeyFilter.h"
#include "motion/QuickMoveUnits.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace korval {

AdvStepFrame::AdvStepFrame(int axis, ClsKdxAxis& record, QWidget* parent)
    : QGroupBox(QString("Axis %1 - Advance Per Step").arg(axis), parent), record_(record) {
    const auto n = QString::number(axis);
    setObjectName("FrameAdvStep" + n);
    auto* grid = new QGridLayout(this);
    auto* perStep = new QLabel("Distance Per Step", this);
    perStep->setObjectName("LblDistancePerStep" + n);
    txtAdvStep_ = new QLineEdit(this);
    txtAdvStep_->setObjectName("TxtAdvStep" + n);
    auto* units = new QLabel("Units Per Step", this);
    units->setObjectName("LblUnitsPerStep" + n);
    txtAdvStepUnits_ = new QLineEdit("Steps", this);
    txtAdvStepUnits_->setObjectName("TxtAdvStepUnits" + n);
    picHelp_ = new PictureButton("PicHelp" + n, Symbol::Help, this);
    grid->addWidget(perStep, 0, 0);
    grid->addWidget(txtAdvStep_, 0, 1);
    grid->addWidget(units, 1, 0);
    grid->addWidget(txtAdvStepUnits_, 1, 1);
    grid->addWidget(picHelp_, 0, 2, 2, 1);

    // A key, an edit of the control's own (paste, delete) and leaving the box: one handler.
    new TextBoxKeyFilter(*txtAdvStep_, [this] { TxtAdvStep_Change(); });
    new TextBoxKeyFilter(*txtAdvStepUnits_, [this] { TxtAdvStepUnits_Change(); });
    connect(txtAdvStep_, &QLineEdit::textEdited, this, [this] { TxtAdvStep_Change(); });
    connect(txtAdvStep_, &QLineEdit::editingFinished, this, [this] { TxtAdvStep_Change(); });
    connect(txtAdvStepUnits_, &QLineEdit::textEdited, this, [this] { TxtAdvStepUnits_Change(); });
    connect(txtAdvStepUnits_, &QLineEdit::editingFinished, this,
            [this] { TxtAdvStepUnits_Change(); });
    connect(picHelp_, &PictureButton::pressed, this, [this] {
        picHelp_->showDown();
        App().delay.TimeDelay(0.25);
        HelpMessage();
    });
    subscriptions_[0] =
        record_.AdvStepChanged.subscribe([this](const std::string& v) { showAdvStep(v); });
    subscriptions_[1] =
        record_.UnitsChanged.subscribe([this](const std::string& u) { showUnits(u); });
}

AdvStepFrame::~AdvStepFrame() {
    record_.AdvStepChanged.unsubscribe(subscriptions_[0]);
    record_.UnitsChanged.unsubscribe(subscriptions_[1]);
}

void AdvStepFrame::TxtAdvStep_Change() {
    if (auto value = AdvStepFromBox(Latin1(txtAdvStep_->text()))) {
        changing_ = true;
        record_.SetAdvStep(*value);
        changing_ = false;
    }
}

void AdvStepFrame::TxtAdvStepUnits_Change() {
    changing_ = true;
    record_.SetAdvStepUnits(Latin1(txtAdvStepUnits_->text()));
    changing_ = false;
}

void AdvStepFrame::RunChangeHandlers() {
    TxtAdvStepUnits_Change();
    TxtAdvStep_Change();
}

void AdvStepFrame::showAdvStep(const std::string& value) {
    // The box the change came from keeps its text: "0." is on its way to "0.5".
    const auto shown = AdvStepFromBox(Latin1(txtAdvStep_->text()));
    if (!changing_ && (!shown || shown != AdvStepFromBox(value))) {
        txtAdvStep_->setText(Latin1(value));
    }
}

void AdvStepFrame::showUnits(const std::string& units) {
    if (!changing_ && Latin1(txtAdvStepUnits_->text()) != units) {
        txtAdvStepUnits_->setText(Latin1(units));
    }
}

void AdvStepFrame::HelpMessage() {
    App().prompts.Message("Enter the advance per step of the motor and the units used\r\n"
                          "Common values can be found on P.11 of the KDX Users Manual",
                          "Advance Per Step", Prompts::Icon::Information, Prompts::Buttons::Ok);
}

} // namespace korval
