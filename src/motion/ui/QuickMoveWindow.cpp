#include "QuickMoveWindow.h"

#include "AdvStepFrame.h"
#include "MotorOptions.h"

#include "core/ui/KorvalServices.h"

#include <QGridLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace korval {

namespace {

ClsKdxAxis& axisRecord(int axis) {
    return *App().axes.ByNumber(axis);
}

} // namespace

QuickMoveWindow::QuickMoveWindow(const QString& name, const QString& caption)
    : FormBase(name, caption) {}

QuickMoveWindow::~QuickMoveWindow() {
    for (int n = 1; n <= 4; ++n) {
        axisRecord(n).AdvStepChanged.unsubscribe(subscriptions_[n - 1]);
        axisRecord(n).UnitsChanged.unsubscribe(subscriptions_[n + 3]);
    }
}

void QuickMoveWindow::addAxes(QVBoxLayout& layout) {
    auto* advance = new QGridLayout();
    for (int n = 1; n <= 4; ++n) {
        optMotor_[n - 1] = OptMotor(*this, n);
        frames_[n - 1] = new AdvStepFrame(n, axisRecord(n), this);
        advance->addWidget(frames_[n - 1], (n - 1) / 2, (n - 1) % 2);
    }
    layout.addLayout(advance);

    for (int n = 1; n <= 4; ++n) {
        auto& record = axisRecord(n);
        subscriptions_[n - 1] =
            record.AdvStepChanged.subscribe([this, n](const std::string&) { AdvStepChanged(n); });
        subscriptions_[n + 3] =
            record.UnitsChanged.subscribe([this, n](const std::string&) { UnitsChanged(n); });
        connect(optMotor_[n - 1], &QRadioButton::toggled, this, [this, n](bool on) {
            if (on) {
                OptMotor_Click(n);
            }
        });
    }
}

AdvStepFrame* QuickMoveWindow::FrameAdvStep(int axis) const {
    return frames_.at(static_cast<std::size_t>(axis - 1));
}

QRadioButton* QuickMoveWindow::option(int axis) const {
    return optMotor_.at(static_cast<std::size_t>(axis - 1));
}

void QuickMoveWindow::RunAdvStepHandlers() {
    for (auto* frame : frames_) {
        frame->RunChangeHandlers();
    }
}

void QuickMoveWindow::Activate() {
    for (int n = 2; n <= 4; ++n) {
        optMotor_[n - 1]->setEnabled(AxisOffered(n));
        frames_[n - 1]->setEnabled(AxisOffered(n));
    }
}

void QuickMoveWindow::showEvent(QShowEvent* event) {
    FormBase::showEvent(event);
    Activate();
}

} // namespace korval
