#pragma once
// What the two QuickMove windows share: the motor options OptMotor1..4, the four "Advance Per
// Step" frames beneath, and the axis events that a change in a frame raises.
#include "core/ui/FormBase.h"

#include <array>

class QRadioButton;
class QVBoxLayout;

namespace korval {

class AdvStepFrame;

class QuickMoveWindow : public FormBase {
    Q_OBJECT
public:
    ~QuickMoveWindow() override;

    AdvStepFrame* FrameAdvStep(int axis) const;
    virtual void OptMotor_Click(int axis) = 0;
    // After the settings are restored: each TxtAdvStepN's handler, 1 to 4.
    void RunAdvStepHandlers();
    // The axes offered by the main window are the ones that may be chosen.
    virtual void Activate();

protected:
    QuickMoveWindow(const QString& name, const QString& caption);
    // Finds the options the window has laid out, adds the frames to `layout` and follows the
    // axes' events from then on.
    void addAxes(QVBoxLayout& layout);
    QRadioButton* option(int axis) const;
    void showEvent(QShowEvent* event) override;

private:
    virtual void AdvStepChanged(int axis) = 0;
    virtual void UnitsChanged(int axis) = 0;

    std::array<QRadioButton*, 4> optMotor_{};
    std::array<AdvStepFrame*, 4> frames_{};
    std::array<int, 8> subscriptions_{};
};

} // namespace korval
