#pragma once
// "Motor Settings Calculator": whether the controller can drive a motor that is in none of the
// lists, and with which motor setting. Advice only; the user sets it in the terminal.
#include "axis/ClsKdxMotorCalc.h"
#include "core/ui/DrawingBox.h"
#include "core/ui/FormBase.h"

#include <cstdint>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace korval {

class FrmKdxToolSetMotorCalc final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolSetMotorCalc();

    // The wires of the option picked; 0 until one is.
    std::int16_t NumOfWires = 0;

    QRadioButton* OptNumOfWires6() const { return wires6_; }
    QRadioButton* OptNumOfWires8() const { return wires8_; }
    QRadioButton* OptNumOfWires0() const { return wires0_; }
    QLineEdit* TxtCurrent() const { return current_; }
    QLineEdit* TxtInductance() const { return inductance_; }
    QPushButton* CmdCalcMtrSetting() const { return calculate_; }
    QLabel* LblMtrSetting() const { return result_; }
    DrawingBox* PicWire() const { return wire_; }

    void CmdCalcMtrSetting_Click();
    void OptNumOfWires6_Click();
    void OptNumOfWires8_Click();
    void OptNumOfWires0_Click();

private:
    void pickWires(std::int16_t wires, Drawing picture);

    ClsKdxMotorCalc calc_;
    QRadioButton* wires6_;
    QRadioButton* wires8_;
    QRadioButton* wires0_;
    QLineEdit* current_;
    QLineEdit* inductance_;
    QPushButton* calculate_;
    QLabel* result_;
    DrawingBox* wire_;
};

} // namespace korval
