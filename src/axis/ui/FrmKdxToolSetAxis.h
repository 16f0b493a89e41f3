#pragma once
// The motor and limit switches of one axis, chosen from lists whose row is the controller's
// setting, and tried out: a test writes them, moves the motor out and back, and puts the old
// ones back unless the user keeps the new. Four copies exist, one per axis.
#include "axis/ClsKdxAxis.h"
#include "axis/MotorList.h"
#include "axis/MotorTest.h"
#include "core/ui/FormBase.h"

#include <QTimer>

#include <cstdint>

class QComboBox;
class QLineEdit;
class QRadioButton;

namespace korval {

class PictureButton;

class FrmKdxToolSetAxis final : public FormBase, public MotorTestView {
    Q_OBJECT
public:
    static constexpr int FollowInterval = 100; // ms between position reads during a test

    // `axis` 1..4: the copy for that axis, caption "Axis n", virtual name "FrmKdxToolSetAxisn".
    explicit FrmKdxToolSetAxis(int axis);
    ~FrmKdxToolSetAxis() override;

    std::int32_t AxisNumber = 0;
    std::int32_t MotorSettingValue = 0;
    std::int32_t LimitSettingValue = 0;
    std::int32_t PrevMotorSettingValue = 0;
    std::int32_t PrevLimitSettingValue = 0;

    // Brings the lists in line with the controller for the chosen axis.
    void MatchWithKDX();
    void MatchAxisData(std::int32_t axis);
    // The test and its questions; the wizard reads how it ended.
    MotorTestOutcome PicTestMotor_MouseDown();
    void PicHelpMotor_MouseDown();

    QComboBox* CmbSetBy() const { return setBy_; }
    QComboBox* CmbMotorSetting() const { return motor_; }
    QComboBox* CmbLimits() const { return limits_; }
    // Grey while the wizard or a test drives the three lists, the usual colour otherwise.
    void ShadeLists(bool driven);

    // The test as this window shows it.
    void ShowPleaseWait(bool shown) override;
    void SetHourglass(bool busy) override;
    void ShowPosition(const std::string& steps) override;
    void SelectSettings(int motorSetting, int limitSetting) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CmbSetBy_Click();
    void CmbMotorSetting_Click();
    void CmbLimits_Click();
    void OptMotor_Click(int axis);
    void selectMotorRow(int row);
    void selectLimitRow(int row);
    MotorMake make() const;
    ClsKdxAxis* record() const; // the record of the row of CmbAxis
    void followPosition();

    QComboBox* axis_;
    QRadioButton* opt_[4];
    QComboBox* setBy_;
    QComboBox* motor_;
    QComboBox* limits_;
    PictureButton* help_;
    PictureButton* test_;
    QLineEdit* position_;
    MotorRowGuard guard_; // LastVextaIndex, LastSuperiorIndex, LastSettingIndex
    QTimer follow_;
    bool stopRequested_ = false;
    int hourglass_ = 0;
};

} // namespace korval
