#pragma once
// "Virtual Jog": a motor moves while an arrow is held, and its position shows as it goes.
#include "core/ui/FormBase.h"
#include "link/Mailbox.h"
#include "motion/ClsJog.h"

#include <array>

class QLineEdit;
class QRadioButton;

namespace korval {

class JogArrow;

class FrmKdxToolVirtualJog final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolVirtualJog();
    ~FrmKdxToolVirtualJog() override;

    int CurrentMotor = 1;

    QLineEdit* TxtVelocity() const { return txtVelocity_; }
    QLineEdit* TxtPosition() const { return txtPosition_; }
    JogArrow* PicMoveNegative() const { return picMoveNegative_; }
    JogArrow* PicMovePositive() const { return picMovePositive_; }

    void PicMove_MouseDown(bool positive);
    // The arrow is let go: the jog ends.
    void PicMove_MouseUp();
    void OptMotor_Click(int axis);
    // The main window's Stop button has stopped everything: show where the motor is.
    void Stopped();
    void Activate();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showPosition(std::string text);

    ClsJog jog_;
    QLineEdit* txtVelocity_;
    QLineEdit* txtPosition_;
    JogArrow* picMoveNegative_;
    JogArrow* picMovePositive_;
    std::array<QRadioButton*, 4> optMotor_{};
    Mailbox::Box* position_; // the driver writes the live position here while a jog runs
    bool jogging_ = false;   // a jog of this window's may still run
    int stoppedSubscription_ = 0;
};

} // namespace korval
