#pragma once
// "KDX QuickMove - Single Axis": one chosen axis moves by a distance at a velocity, both in the
// user's units, turned into whole steps through that axis's advance per step.
#include "QuickMoveWindow.h"

#include "motion/QuickMove.h"
#include "motion/QuickMoveUnits.h"

class QLabel;
class QLineEdit;

namespace korval {

class ClsKdxAxis;
class PictureButton;

class FrmKdxToolQuickMoveSingle final : public QuickMoveWindow {
    Q_OBJECT
public:
    FrmKdxToolQuickMoveSingle();

    int CurrentMotor = 1;

    QLineEdit* TxtVelocity() const { return txtVelocity_; }
    QLineEdit* TxtDistance() const { return txtDistance_; }

    void OptMotor_Click(int axis) override;
    void PicMove_MouseDown(QuickMoveDirection direction);
    // The boxes in steps, for the motor shown: what the settings file keeps.
    void RestoreVelDist();
    void CalcVelDist();
    void PrepareForSave() override { RestoreVelDist(); }

private:
    void AdvStepChanged(int axis) override;
    void UnitsChanged(int axis) override;
    void showUnits(const std::string& units);
    VelDist boxes() const;
    void setBoxes(const VelDist& boxes);

    QLineEdit* txtVelocity_;
    QLineEdit* txtDistance_;
    QLabel* lblVelocity2_;
    QLabel* lblDistance2_;
    PictureButton* picMoveNegative_;
    PictureButton* picMovePositive_;
};

} // namespace korval
