#include "FrmKdxToolSetMotorCalc.h"

#include "LabelTarget.h"

#include "core/qt/Latin1.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace korval {

namespace {

constexpr const char* CurrentTip = "Enter motor rated current (units must be in AMPS)";
constexpr const char* InductanceTip = "Enter motor rated inductance (units must be in Milli-Henry)";

QRadioButton* wiresOption(QGroupBox* frame, QBoxLayout* into, const char* name, const char* caption,
                          const char* tip) {
    auto* option = new QRadioButton(caption, frame);
    option->setObjectName(name);
    option->setToolTip(tip);
    into->addWidget(option);
    return option;
}

QLabel* specLabel(QWidget* parent, int index, const char* caption, const char* tip) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QString("LblMtrSpec%1").arg(index));
    label->setToolTip(tip);
    return label;
}

} // namespace

FrmKdxToolSetMotorCalc::FrmKdxToolSetMotorCalc()
    : FormBase("FrmKdxToolSetMotorCalc", "Motor Settings Calculator") {
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout();

    auto* wiresFrame = new QGroupBox("Number of Wires on Permanent Magnet Motor", this);
    wiresFrame->setObjectName("FrameNumOfWires");
    wiresFrame->setToolTip("Select # of wires in  motor");
    auto* options = new QVBoxLayout(wiresFrame);
    wires6_ = wiresOption(wiresFrame, options, "OptNumOfWires6", "6 wires",
                          "Select if  motor has 6 wires");
    wires8_ = wiresOption(wiresFrame, options, "OptNumOfWires8", "8 wires",
                          "Select if  motor has 8 wires");
    wires0_ = wiresOption(wiresFrame, options, "OptNumOfWires0", "Other",
                          "Select if  motor does not have 6 or 8 wires");
    wiresFrame->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    top->addWidget(wiresFrame);

    wire_ = new DrawingBox("PicWire", std::nullopt, this);
    wire_->setToolTip("Motors MUST be wired in this configuration");
    top->addWidget(wire_, 1);
    layout->addLayout(top);

    auto* specs = new QGroupBox("Motor Specs", this);
    specs->setObjectName("FrameMtrSpec");
    specs->setToolTip("Enter motor rated current (units must be in AMPS) and  inductance (units "
                      "must be in Milli-Henry)");
    auto* grid = new QGridLayout(specs);
    current_ = new QLineEdit(specs);
    current_->setObjectName("TxtCurrent");
    current_->setToolTip(CurrentTip);
    inductance_ = new QLineEdit(specs);
    inductance_->setObjectName("TxtInductance");
    inductance_->setToolTip(InductanceTip);
    grid->addWidget(
        specLabel(specs, 0, "Motor Uni-Polar per Phase Current Rating (in Amps)", CurrentTip), 0,
        0);
    grid->addWidget(current_, 0, 1);
    grid->addWidget(specLabel(specs, 2, "Amps", CurrentTip), 0, 2);
    grid->addWidget(specLabel(specs, 1, "Motor Inductance (in Milli-Henry)", InductanceTip), 1, 0);
    grid->addWidget(inductance_, 1, 1);
    grid->addWidget(specLabel(specs, 3, "Milli-Henry", InductanceTip), 1, 2);
    layout->addWidget(specs);

    calculate_ = new QPushButton("Calculate Motor Setting", this);
    calculate_->setObjectName("CmdCalcMtrSetting");
    calculate_->setToolTip(
        "Press to determine if motor can be used with KDX and what setting to use");
    layout->addWidget(calculate_);

    auto* results = new QGroupBox("Motor Setting Results", this);
    results->setObjectName("Frame1");
    results->setToolTip("Use KDX commands and set motor to this setting in the terminal to set "
                        "motor (example: setM1M0)");
    auto* resultColumn = new QVBoxLayout(results);
    result_ = new QLabel(results);
    result_->setObjectName("LblMtrSetting");
    result_->setWordWrap(true);
    result_->setMinimumHeight(48);
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    resultColumn->addWidget(result_);
    layout->addWidget(results);
    resize(560, 460);

    connect(calculate_, &QPushButton::clicked, this, [this] { CmdCalcMtrSetting_Click(); });
    const std::pair<QRadioButton*, void (FrmKdxToolSetMotorCalc::*)()> clicks[] = {
        {wires6_, &FrmKdxToolSetMotorCalc::OptNumOfWires6_Click},
        {wires8_, &FrmKdxToolSetMotorCalc::OptNumOfWires8_Click},
        {wires0_, &FrmKdxToolSetMotorCalc::OptNumOfWires0_Click},
    };
    for (const auto& [option, handler] : clicks) {
        connect(option, &QRadioButton::toggled, this, [this, h = handler](bool on) {
            if (on) {
                (this->*h)();
            }
        });
    }
}

void FrmKdxToolSetMotorCalc::CmdCalcMtrSetting_Click() {
    LabelTarget label(*result_);
    calc_.CalcFromText(NumOfWires, Latin1(current_->text()), Latin1(inductance_->text()), &label);
}

void FrmKdxToolSetMotorCalc::pickWires(std::int16_t wires, Drawing picture) {
    result_->clear();
    NumOfWires = wires;
    wire_->setDrawing(picture);
}

void FrmKdxToolSetMotorCalc::OptNumOfWires6_Click() {
    pickWires(6, Drawing::Pic6Wire);
}

void FrmKdxToolSetMotorCalc::OptNumOfWires8_Click() {
    pickWires(8, Drawing::Pic8Wire);
}

void FrmKdxToolSetMotorCalc::OptNumOfWires0_Click() {
    pickWires(0, Drawing::PicNo);
    LabelTarget label(*result_);
    calc_.NumOfWiresError(&label); // the refusal is seen at once
}

} // namespace korval
