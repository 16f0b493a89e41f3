#include "FrmKdxToolQuickMoveMulti.h"

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

QRadioButton* namedOption(const QString& name, const QString& caption, bool checked,
                          QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    option->setChecked(checked);
    return option;
}

} // namespace

FrmKdxToolQuickMoveMulti::FrmKdxToolQuickMoveMulti()
    : QuickMoveWindow("FrmKdxToolQuickMoveMulti", "KDX QuickMove - Simultaneous Axis") {
    auto* layout = new QVBoxLayout(this);
    auto* controls = new QHBoxLayout();
    groups_[0] = buildGroup(1, 1, &CurrentMotor1);
    groups_[1] = buildGroup(2, 3, &CurrentMotor2);
    controls->addWidget(groups_[0].frame);
    controls->addWidget(groups_[1].frame);
    picMoveMtrs_ = new PictureButton("PicMoveMtrs", Symbol::QuickMoveMulti, this);
    controls->addWidget(picMoveMtrs_);
    layout->addLayout(controls);
    addAxes(*layout);
    for (int n = 1; n <= 4; ++n) {
        CurrentAdvStep[n - 1] = BoxValue(axisRecord(n).GetAdvStep());
    }
    for (auto& g : groups_) {
        showUnits(g);
    }
    connect(picMoveMtrs_, &PictureButton::pressed, this, [this] { PicMoveMtrs_MouseDown(); });
}

FrmKdxToolQuickMoveMulti::Group FrmKdxToolQuickMoveMulti::buildGroup(int number, int first,
                                                                     int* currentMotor) {
    const auto n = QString::number(number);
    const auto letter = QString(number == 1 ? "A" : "B");
    Group g;
    g.first = first;
    g.currentMotor = currentMotor;
    g.frame = new QGroupBox(QString("Axis %1 Motor Control").arg(number), this);
    g.frame->setObjectName("FrameMotor" + n);
    auto* grid = new QGridLayout(g.frame);
    grid->addWidget(MotorFrame("FrameMtrGrp" + n, "", first, first + 1, g.frame), 0, 0, 1, 3);
    g.velocity = NamedBox("TxtVelocity" + n, "2000", g.frame);
    g.velocity->setToolTip("Enter Velocity in Steps per Second");
    g.distance = NamedBox("TxtDistance" + n, "400", g.frame);
    g.distance->setToolTip("Enter Distance in Steps");
    g.velocityUnits = NamedLabel("LblVelocity" + n, "Steps per Second", g.frame);
    g.distanceUnits = NamedLabel("LblDistance" + n, "Steps", g.frame);
    AddBoxRow(*grid, 1, NamedLabel("LblVelocity" + letter, "Velocity:", g.frame), g.velocity,
              g.velocityUnits);
    AddBoxRow(*grid, 2, NamedLabel("LblDistance" + letter, "Distance:", g.frame), g.distance,
              g.distanceUnits);
    g.directions = new QGroupBox(g.frame);
    g.directions->setObjectName("FrameDirGrp" + n);
    auto* row = new QHBoxLayout(g.directions);
    g.negative = namedOption("OptMtrNeg" + n, "Negative", false, g.directions);
    g.positive = namedOption("OptMtrPos" + n, "Positive", true, g.directions);
    row->addWidget(g.negative);
    row->addWidget(g.positive);
    grid->addWidget(g.directions, 3, 0, 1, 3);
    return g;
}

bool FrmKdxToolQuickMoveMulti::chosen(const Group& g) const {
    const auto* chosen = option(*g.currentMotor);
    return chosen->isChecked() && chosen->isEnabledTo(this);
}

void FrmKdxToolQuickMoveMulti::convert(Group& g, void (*rule)(VelDist&, bool, double),
                                       double advance) {
    VelDist boxes{Latin1(g.velocity->text()), Latin1(g.distance->text())};
    rule(boxes, chosen(g), advance);
    g.velocity->setText(Latin1(boxes.velocity));
    g.distance->setText(Latin1(boxes.distance));
}

void FrmKdxToolQuickMoveMulti::showUnits(Group& g) {
    const auto units = axisRecord(*g.currentMotor).GetAdvStepUnits();
    if (!units.empty()) {
        g.velocityUnits->setText(Latin1(units + " per Second"));
        g.distanceUnits->setText(Latin1(units));
    }
}

void FrmKdxToolQuickMoveMulti::OptMotor_Click(int axis) {
    auto& g = groupOf(axis);
    convert(g, RestoreGroup, CurrentAdvStep[*g.currentMotor - 1]);
    *g.currentMotor = axis;
    convert(g, CalcGroup, CurrentAdvStep[axis - 1]);
    showUnits(g);
}

void FrmKdxToolQuickMoveMulti::AdvStepChanged(int axis) {
    auto& g = groupOf(axis);
    const double advance = BoxValue(axisRecord(axis).GetAdvStep());
    const bool shown = *g.currentMotor == axis;
    if (shown) {
        convert(g, RestoreGroup, CurrentAdvStep[axis - 1]);
    }
    CurrentAdvStep[axis - 1] = advance;
    if (shown) {
        convert(g, CalcGroup, advance);
    }
}

void FrmKdxToolQuickMoveMulti::UnitsChanged(int axis) {
    auto& g = groupOf(axis);
    if (*g.currentMotor == axis) {
        showUnits(g);
    }
}

void FrmKdxToolQuickMoveMulti::RestoreVelDist() {
    for (auto& g : groups_) {
        convert(g, RestoreGroup, CurrentAdvStep[*g.currentMotor - 1]);
    }
}

void FrmKdxToolQuickMoveMulti::CalcVelDist() {
    for (auto& g : groups_) {
        convert(g, CalcGroup, CurrentAdvStep[*g.currentMotor - 1]);
    }
}

void FrmKdxToolQuickMoveMulti::Activate() {
    QuickMoveWindow::Activate();
    // Without motor 3 or 4 only the first group moves, alone between the parentheses.
    const bool second = AxisOffered(3) || AxisOffered(4);
    groups_[1].frame->setEnabled(second);
    groups_[1].directions->setEnabled(second);
}

QuickMoveGroup FrmKdxToolQuickMoveMulti::moveGroup(const Group& g) const {
    std::optional<QuickMoveDirection> direction;
    if (g.negative->isChecked()) {
        direction = QuickMoveDirection::Negative;
    } else if (g.positive->isChecked()) {
        direction = QuickMoveDirection::Positive;
    }
    const int motor = *g.currentMotor;
    return {chosen(g),
            motor,
            CurrentAdvStep[motor - 1],
            Latin1(g.velocity->text()),
            Latin1(g.distance->text()),
            direction};
}

void FrmKdxToolQuickMoveMulti::PicMoveMtrs_MouseDown() {
    auto& app = App();
    picMoveMtrs_->showDown();
    const QPointer<QWidget> alive(this); // the waits let events run, a shutdown among them
    app.delay.TimeDelay(0.25);
    if (!alive) {
        return;
    }
    picMoveMtrs_->hide();
    picMoveMtrs_->showUp();
    const auto outcome =
        PlanQuickMoveMulti(moveGroup(groups_[0]), moveGroup(groups_[1]), OfferedAxes(*this));
    if (outcome.refusal == QuickMoveRefusal::None) {
        SendQuickMove(app.kdx, app.delay, outcome.plan);
    } else {
        TellRefusal(outcome.refusal, Latin1(windowTitle()));
    }
    if (alive) {
        picMoveMtrs_->show();
    }
}

} // namespace korval
