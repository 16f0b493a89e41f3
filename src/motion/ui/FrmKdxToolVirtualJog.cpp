#include "FrmKdxToolVirtualJog.h"

#include "JogArrow.h"
#include "MotorOptions.h"
#include "NamedControls.h"

#include "axis/ClsKdxAxis.h"
#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace korval {

FrmKdxToolVirtualJog::FrmKdxToolVirtualJog()
    : FormBase("FrmKdxToolVirtualJog", "Virtual Jog"), jog_(App().kdx) {
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout();
    picMoveNegative_ = new JogArrow("PicMoveNegative", Symbol::MoveNegative, this);
    picMovePositive_ = new JogArrow("PicMovePositive", Symbol::MovePositive, this);
    txtVelocity_ = NamedBox("TxtVelocity", "2000", this);
    txtPosition_ = NamedBox("TxtPosition", "0", this);
    txtPosition_->setReadOnly(true); // the driver writes it
    AddBoxRow(*grid, 0, NamedLabel("LblVelocity1", "Velocity:", this), txtVelocity_,
              NamedLabel("LblVelocity2", "Steps / Sec", this));
    AddBoxRow(*grid, 1, NamedLabel("LblPosition1", "Position:", this), txtPosition_,
              NamedLabel("LblPosition2", "Steps", this));
    grid->addWidget(picMoveNegative_, 0, 3, 2, 1);
    grid->addWidget(picMovePositive_, 0, 4, 2, 1);
    layout->addLayout(grid);
    layout->addWidget(MotorFrame("FrameMotor", "Motor", 1, 4, this));

    auto& app = App();
    position_ = &app.mailbox.addBox(Mailbox::Mode::ReplaceLatestOnly,
                                    [this](const std::string& text) { showPosition(text); });
    for (int n = 1; n <= 4; ++n) {
        optMotor_[n - 1] = OptMotor(*this, n);
        connect(optMotor_[n - 1], &QRadioButton::toggled, this, [this, n](bool on) {
            if (on) {
                OptMotor_Click(n);
            }
        });
    }
    for (auto* arrow : {picMoveNegative_, picMovePositive_}) {
        const bool positive = arrow == picMovePositive_;
        connect(arrow, &JogArrow::pressed, this, [this, positive] { PicMove_MouseDown(positive); });
        connect(arrow, &JogArrow::letGo, this, [this] { PicMove_MouseUp(); });
    }
    stoppedSubscription_ = app.mdi->Stopped.subscribe([this] { Stopped(); });
}

FrmKdxToolVirtualJog::~FrmKdxToolVirtualJog() {
    position_->setHandler({});
    if (App().mdi != nullptr) {
        App().mdi->Stopped.unsubscribe(stoppedSubscription_);
    }
}

void FrmKdxToolVirtualJog::showPosition(std::string text) {
    ClsKdxAxis::FormatPosition(text);
    txtPosition_->setText(Latin1(text));
    txtPosition_->repaint(); // at once, while the arrow is still held
}

void FrmKdxToolVirtualJog::PicMove_MouseDown(bool positive) {
    auto& app = App();
    app.kdx.Verifying = true;
    (positive ? picMovePositive_ : picMoveNegative_)->showDown();
    (positive ? picMoveNegative_ : picMovePositive_)->showUp();
    if (!OfferedAxes(*this).Has(CurrentMotor)) {
        return; // an axis the controller does not drive gets nothing
    }
    const auto speed = JogSpeed(Latin1(txtVelocity_->text()));
    if (positive) {
        jog_.PositiveJog(CurrentMotor, speed, position_->sink());
    } else {
        jog_.NegativeJog(CurrentMotor, speed, position_->sink());
    }
    jogging_ = true;
}

void FrmKdxToolVirtualJog::PicMove_MouseUp() {
    App().kdx.Verifying = false;
    picMoveNegative_->showUp();
    picMovePositive_->showUp();
    // The driver cannot see the mouse: the release is sent as a stop.
    if (jogging_ && jog_.StopJog() != 0) {
        jogging_ = false;
    }
}

void FrmKdxToolVirtualJog::OptMotor_Click(int axis) {
    CurrentMotor = axis;
    if (IsShown()) {
        txtPosition_->setText(Latin1(App().kdx.GetCurrentMotorPosition(axis)));
    }
    auto text = Latin1(txtPosition_->text());
    showPosition(text);
}

void FrmKdxToolVirtualJog::Stopped() {
    picMoveNegative_->LetGo();
    picMovePositive_->LetGo();
    jogging_ = false; // the Stop button stopped it
    if (const int motor = SelectedMotor(*this); motor != 0 && IsShown()) {
        txtPosition_->setText(Latin1(App().kdx.GetCurrentMotorPosition(motor)));
    }
}

void FrmKdxToolVirtualJog::Activate() {
    for (int n = 2; n <= 4; ++n) {
        optMotor_[n - 1]->setEnabled(AxisOffered(n));
    }
}

void FrmKdxToolVirtualJog::showEvent(QShowEvent* event) {
    FormBase::showEvent(event);
    Activate();
}

void FrmKdxToolVirtualJog::hideEvent(QHideEvent* event) {
    FormBase::hideEvent(event);
    picMoveNegative_->LetGo();
    picMovePositive_->LetGo();
    if (jogging_) {
        PicMove_MouseUp(); // closing the window always ends its jog
    }
}

} // namespace korval
