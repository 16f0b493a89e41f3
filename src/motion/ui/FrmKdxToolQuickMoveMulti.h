#pragma once
// "KDX QuickMove - Simultaneous Axis": one of motors 1 and 2 and one of motors 3 and 4 move at
// once, each by a distance at a velocity in the user's units, in one command.
#include "QuickMoveWindow.h"

#include "motion/QuickMove.h"
#include "motion/QuickMoveUnits.h"

#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;

namespace korval {

class PictureButton;

class FrmKdxToolQuickMoveMulti final : public QuickMoveWindow {
    Q_OBJECT
public:
    FrmKdxToolQuickMoveMulti();

    int CurrentMotor1 = 1;
    int CurrentMotor2 = 3;
    std::array<double, 4> CurrentAdvStep{}; // the advance per step in force for axes 1..4

    QLineEdit* TxtVelocity(int group) const { return groupAt(group).velocity; }
    QLineEdit* TxtDistance(int group) const { return groupAt(group).distance; }

    void OptMotor_Click(int axis) override;
    void PicMoveMtrs_MouseDown();
    // Both groups into steps, or from steps into the units of their motors.
    void RestoreVelDist();
    void CalcVelDist();
    // The second group only with motor 3 or 4.
    void Activate() override;
    // The boxes go into the settings file in steps, as the single axis window's do.
    void PrepareForSave() override { RestoreVelDist(); }

private:
    // One "Axis N Motor Control" frame.
    struct Group {
        int first = 1; // its motors: first and first + 1
        int* currentMotor = nullptr;
        QGroupBox* frame = nullptr;
        QGroupBox* directions = nullptr;
        QLineEdit* velocity = nullptr;
        QLineEdit* distance = nullptr;
        QLabel* velocityUnits = nullptr;
        QLabel* distanceUnits = nullptr;
        QRadioButton* negative = nullptr;
        QRadioButton* positive = nullptr;
    };
    const Group& groupAt(int group) const {
        return groups_.at(static_cast<std::size_t>(group - 1));
    }
    Group& groupOf(int axis) { return groups_[axis <= 2 ? 0 : 1]; }
    Group buildGroup(int number, int first, int* currentMotor);
    bool chosen(const Group& g) const;
    QuickMoveGroup moveGroup(const Group& g) const;
    void convert(Group& g, void (*rule)(VelDist&, bool, double), double advance);
    void AdvStepChanged(int axis) override;
    void UnitsChanged(int axis) override;
    void showUnits(Group& g);

    std::array<Group, 2> groups_;
    PictureButton* picMoveMtrs_ = nullptr;
};

} // namespace korval
