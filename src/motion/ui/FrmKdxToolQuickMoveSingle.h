#pragma once
// "KDX QuickMove - Single Axis": one chosen axis moves by a distance at a velocity, both in the
// user's units, turned into whole steps through that axis's advance per step.
#include "core/ui/FormBase.h"
#include "motion/QuickMove.h"
#include "motion/QuickMoveUnits.h"

#include <array>

class QLabel;
class QLineEdit;
class QRadioButton;

namespace korval {

class AdvStepFrame;
class ClsKdxAxis;
class PictureButton;

class FrmKdxToolQuickMoveSingle final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolQuickMoveSingle();
    ~FrmKdxToolQuickMoveSingle() override;

    int CurrentMotor = 1;

    QLineEdit* TxtVelocity() const { return txtVelocity_; }
    QLineEdit* TxtDistance() const { return txtDistance_; }
    AdvStepFrame* FrameAdvStep(int axis) const;

    void OptMotor_Click(int axis);
    void PicMove_MouseDown(QuickMoveDirection direction);
    // The boxes in steps, for the motor shown: what the settings file keeps.
    void RestoreVelDist();
    void CalcVelDist();
    // After the settings are restored: each TxtAdvStepN's handler, 1 to 4.
    void RunAdvStepHandlers();
    // The axes offered by the main window are the ones that may be chosen.
    void Activate();
    void PrepareForSave() override { RestoreVelDist(); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void AdvStepChanged(int axis);
    void UnitsChanged(int axis);
    void showUnits(const std::string& units);
    VelDist boxes() const;
    void setBoxes(const VelDist& boxes);

    QLineEdit* txtVelocity_;
    QLineEdit* txtDistance_;
    QLabel* lblVelocity2_;
    QLabel* lblDistance2_;
    PictureButton* picMoveNegative_;
    PictureButton* picMovePositive_;
    std::array<QRadioButton*, 4> optMotor_{};
    std::array<AdvStepFrame*, 4> frames_{};
    std::array<int, 8> subscriptions_{};
};

} // namespace korval
