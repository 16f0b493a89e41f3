#include "FrmKdxToolAxisPositions.h"

#include "NamedControls.h"

#include "axis/ClsKdxAxis.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QGridLayout>
#include <QLabel>
#include <QTimer>

namespace korval {

namespace {

ClsKdxAxis& axisRecord(int axis) {
    return *App().axes.ByNumber(axis);
}

} // namespace

FrmKdxToolAxisPositions::FrmKdxToolAxisPositions()
    : FormBase("FrmKdxToolAxisPositions", "Axis Positions") {
    auto* grid = new QGridLayout(this);
    grid->addWidget(NamedLabel("LblStepsHeading", "Steps", this), 0, 1);
    grid->addWidget(NamedLabel("LblUnitsHeading", "User Units", this), 0, 2);
    for (int n = 1; n <= 4; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        const auto number = QString::number(n);
        steps_[i] = NamedLabel("LblSteps" + number, "", this);
        units_[i] = NamedLabel("LblUnits" + number, "", this);
        steps_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        steps_[i]->setMinimumWidth(90);
        units_[i]->setMinimumWidth(140);
        grid->addWidget(NamedLabel("LblAxis" + number, "Axis " + number, this), n, 0);
        grid->addWidget(steps_[i], n, 1);
        grid->addWidget(units_[i], n, 2);
    }
    timer_ = new QTimer(this);
    timer_->setObjectName("TmrRefresh");
    timer_->setInterval(RefreshMilliseconds);
    connect(timer_, &QTimer::timeout, this, [this] { TmrRefresh_Timer(); });

    // A new advance per step changes the units shown, not the line.
    for (int n = 1; n <= 4; ++n) {
        auto& record = axisRecord(n);
        subscriptions_[n - 1] =
            record.AdvStepChanged.subscribe([this](const std::string&) { showReadings(); });
        subscriptions_[n + 3] =
            record.UnitsChanged.subscribe([this](const std::string&) { showReadings(); });
    }
    // Every status word may follow a move that the status polls did not catch.
    subscriptions_[8] =
        App().kdx.KdxChanged.subscribe([this](const std::string&) { watch_.Wake(); });
}

FrmKdxToolAxisPositions::~FrmKdxToolAxisPositions() {
    for (int n = 1; n <= 4; ++n) {
        axisRecord(n).AdvStepChanged.unsubscribe(subscriptions_[n - 1]);
        axisRecord(n).UnitsChanged.unsubscribe(subscriptions_[n + 3]);
    }
    App().kdx.KdxChanged.unsubscribe(subscriptions_[8]);
}

void FrmKdxToolAxisPositions::showEvent(QShowEvent* event) {
    FormBase::showEvent(event);
    watch_.Restart();
    timer_->start();
}

void FrmKdxToolAxisPositions::hideEvent(QHideEvent* event) {
    FormBase::hideEvent(event);
    timer_->stop();
}

void FrmKdxToolAxisPositions::TmrRefresh_Timer() {
    auto& app = App();
    const PositionWatch::Now now{IsShown(), app.lineHeld > 0,
                                 app.mdi != nullptr ? app.mdi->Caption() : std::string()};
    if (!watch_.ShouldRead(now)) {
        return;
    }
    for (int n = 1; n <= 4; ++n) {
        auto& reading = readings_[static_cast<std::size_t>(n - 1)];
        if (watch_.Asks(n)) {
            reading = ReadPosition(app.kdx.GetCurrentMotorPosition(n));
        }
    }
    watch_.Read(readings_);
    showReadings();
}

void FrmKdxToolAxisPositions::showReadings() {
    for (int n = 1; n <= 4; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        const auto& reading = readings_[i];
        if (reading.kind != PositionReading::Kind::Steps) {
            steps_[i]->setText(reading.kind == PositionReading::Kind::Refused ? "none" : "");
            units_[i]->clear();
            continue;
        }
        const auto& record = axisRecord(n);
        steps_[i]->setText(QString::number(reading.steps));
        const auto units = PositionInUnits(reading.steps, record.GetAdvStep());
        units_[i]->setText(units.empty() ? QString()
                                         : Latin1(units + " " + record.GetAdvStepUnits()));
    }
}

} // namespace korval
