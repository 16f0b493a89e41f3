#pragma once
// One axis's "Advance Per Step" frame of the QuickMove windows (FrameAdvStepN): the distance
// the axis moves per motor step, the name of the user's unit, and a help button. What is typed
// goes to the axis record; what the axis record holds comes back into the boxes, so that both
// QuickMove windows show the same advance per step.
#include <QGroupBox>

class QLineEdit;

namespace korval {

class ClsKdxAxis;
class PictureButton;

class AdvStepFrame final : public QGroupBox {
    Q_OBJECT
public:
    AdvStepFrame(int axis, ClsKdxAxis& record, QWidget* parent = nullptr);
    ~AdvStepFrame() override;

    QLineEdit* TxtAdvStep() const { return txtAdvStep_; }
    QLineEdit* TxtAdvStepUnits() const { return txtAdvStepUnits_; }

    // The boxes' change handlers: a number goes to the axis as its advance per step (anything
    // else changes nothing); the unit's name goes as it is.
    void TxtAdvStep_Change();
    void TxtAdvStepUnits_Change();
    // Once the settings are restored: the axis takes what the boxes hold.
    void RunChangeHandlers();

    static void HelpMessage();

private:
    void showAdvStep(const std::string& value);
    void showUnits(const std::string& units);

    ClsKdxAxis& record_;
    QLineEdit* txtAdvStep_;
    QLineEdit* txtAdvStepUnits_;
    PictureButton* picHelp_;
    int subscriptions_[2] = {0, 0};
    bool changing_ = false; // this frame's own box is what changed the axis
};

} // namespace korval
