#include "FrmKdxToolQuickMoveSingle.h"

#include "AdvStepFrame.h"
#include "MotorOptions.h"
#include "NamedControls.h"

#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/PictureButton.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QVBoxLayout>

namespace korval {

namespace {

ClsKdxAxis& axisRecord(int axis) {
    return *App().axes.ByNumber(axis);
}

} // namespace

FrmKdxToolQuickMoveSingle::FrmKdxToolQuickMoveSingle()
    : QuickMoveWindow("FrmKdxToolQuickMoveSingle", "KDX QuickMove - Single Axis") {
    auto* layout = new QVBoxLayout(this);
    auto* motors = MotorFrame("FrameMotor", "Motor", 1, 4, this);
    layout->addWidget(motors);

    auto* grid = new QGridLayout();
    txtVelocity_ = NamedBox("TxtVelocity", "2000", this);
    txtDistance_ = NamedBox("TxtDistance", "400", this);
    lblVelocity2_ = NamedLabel("LblVelocity2", "Steps / Sec", this);
    lblDistance2_ = NamedLabel("LblDistance2", "Steps", this);
    AddBoxRow(*grid, 0, NamedLabel("LblVelocity1", "Velocity:", this), txtVelocity_, lblVelocity2_);
    AddBoxRow(*grid, 1, NamedLabel("LblDistance1", "Distance:", this), txtDistance_, lblDistance2_);
    picMoveNegative_ = new PictureButton("PicMoveNegative", Symbol::MoveNegative, this);
    picMovePositive_ = new PictureButton("PicMovePositive", Symbol::MovePositive, this);
    grid->addWidget(picMoveNegative_, 0, 3, 2, 1);
    grid->addWidget(picMovePositive_, 0, 4, 2, 1);
    layout->addLayout(grid);

    addAxes(*layout);
    connect(picMoveNegative_, &PictureButton::pressed, this,
            [this] { PicMove_MouseDown(QuickMoveDirection::Negative); });
    connect(picMovePositive_, &PictureButton::pressed, this,
            [this] { PicMove_MouseDown(QuickMoveDirection::Positive); });

    // Every axis starts at one step per unit, in the unit the frame names.
    for (int n = 1; n <= 4; ++n) {
        auto one = Currency::fromUnits(Currency::Scale);
        axisRecord(n).SetAdvStep(one);
        FrameAdvStep(n)->TxtAdvStepUnits_Change();
    }
}

VelDist FrmKdxToolQuickMoveSingle::boxes() const {
    return {Latin1(txtVelocity_->text()), Latin1(txtDistance_->text())};
}

void FrmKdxToolQuickMoveSingle::setBoxes(const VelDist& boxes) {
    txtVelocity_->setText(Latin1(boxes.velocity));
    txtDistance_->setText(Latin1(boxes.distance));
}

void FrmKdxToolQuickMoveSingle::showUnits(const std::string& units) {
    lblVelocity2_->setText(Latin1(units + " per Second"));
    lblDistance2_->setText(Latin1(units));
}

void FrmKdxToolQuickMoveSingle::AdvStepChanged(int axis) {
    const auto& record = axisRecord(axis);
    if (option(axis)->isChecked() && !record.GetOldAdvStep().empty()) {
        auto b = boxes();
        korval::AdvStepChanged(b, record);
        setBoxes(b);
    }
}

void FrmKdxToolQuickMoveSingle::UnitsChanged(int axis) {
    if (option(axis)->isChecked()) {
        showUnits(axisRecord(axis).GetAdvStepUnits());
    }
}

void FrmKdxToolQuickMoveSingle::RestoreVelDist() {
    auto b = boxes();
    korval::RestoreVelDist(b, axisRecord(CurrentMotor).GetAdvStep());
    setBoxes(b);
}

void FrmKdxToolQuickMoveSingle::CalcVelDist() {
    auto b = boxes();
    korval::CalcVelDist(b, axisRecord(CurrentMotor).GetAdvStep());
    setBoxes(b);
}

void FrmKdxToolQuickMoveSingle::OptMotor_Click(int axis) {
    RestoreVelDist();
    CurrentMotor = axis;
    CalcVelDist();
    showUnits(axisRecord(axis).GetAdvStepUnits());
}

void FrmKdxToolQuickMoveSingle::PicMove_MouseDown(QuickMoveDirection direction) {
    const bool positive = direction == QuickMoveDirection::Positive;
    auto* pressed = positive ? picMovePositive_ : picMoveNegative_;
    auto* other = positive ? picMoveNegative_ : picMovePositive_;
    pressed->showDown();
    other->showUp();
    auto& app = App();
    const QPointer<QWidget> alive(this); // the waits let events run, a shutdown among them
    app.delay.TimeDelay(0.25);
    if (!alive) {
        return;
    }
    pressed->hide();
    other->hide();
    pressed->showUp();
    const auto outcome =
        PlanQuickMoveSingle(app.axes, CurrentMotor, OfferedAxes(*this),
                            Latin1(txtVelocity_->text()), Latin1(txtDistance_->text()), direction);
    if (outcome.refusal == QuickMoveRefusal::None) {
        SendQuickMove(app.kdx, app.delay, outcome.plan);
    } else {
        TellRefusal(outcome.refusal, Latin1(windowTitle()));
    }
    if (alive) {
        picMoveNegative_->show();
        picMovePositive_->show();
    }
}

} // namespace korval
