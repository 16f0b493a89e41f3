#include "FrmKdxToolSetJoystickAnalog.h"

#include "axis/DeviceSettings.h"
#include "core/qt/Latin1.h"
#include "core/ui/DrawingBox.h"
#include "core/ui/FormControls.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace korval {

namespace {

QComboBox* speedList(QWidget* parent, QBoxLayout* into, const char* frame, const char* caption,
                     const char* name, const char* tip, int startRow) {
    auto* group = new QGroupBox(caption, parent);
    group->setObjectName(frame);
    auto* row = new QHBoxLayout(group);
    auto* list = new QComboBox(group);
    list->setObjectName(name);
    list->setToolTip(tip);
    for (const auto& text : AnalogSpeedRows()) {
        list->addItem(Latin1(text));
    }
    list->setCurrentIndex(startRow);
    FormControls::TakeNoTypedText(*list);
    row->addWidget(list);
    into->addWidget(group);
    return list;
}

} // namespace

FrmKdxToolSetJoystickAnalog::FrmKdxToolSetJoystickAnalog(int axis)
    : DeviceWindow("FrmKdxToolSetJoystickAnalog", "Joystick Settings - Analog", axis) {
    auto* columns = new QHBoxLayout();
    auto* settings = new QVBoxLayout();
    primary_ = speedList(this, settings, "FrameSpeedPrimary", "Primary Speed", "CmbSpeedPrimary",
                         "Select Maximum \"Low Speed\" Velocity", AnalogPrimaryStartRow);
    secondary_ =
        speedList(this, settings, "FrameSpeedSecondary", "Secondary Speed", "CmbSpeedSecondary",
                  "Select Maximum \"High Speed\" Velocity", AnalogSecondaryStartRow);
    auto* deadBandRow = new QHBoxLayout();
    auto* label = new QLabel("Deadband Setting (Warning: Setting Value too low will result in "
                             "difficulty operating just 1 axis at a time)",
                             this);
    label->setObjectName("LblDeadBand");
    label->setToolTip("Enter deadband setting....Too low a value will result in some loss of "
                      "control");
    label->setWordWrap(true);
    deadBand_ = new QLineEdit(AnalogDeadBandStart, this);
    deadBand_->setObjectName("TxtAnalogDeadBand");
    deadBand_->setToolTip("Enter joystick deadband setting  (20 to 100)");
    deadBand_->setMaximumWidth(70);
    deadBandRow->addWidget(label, 1);
    deadBandRow->addWidget(deadBand_);
    settings->addLayout(deadBandRow);
    columns->addLayout(settings, 1);
    columns->addWidget(new DrawingBox("PicJoystick", Drawing::PicJoystick, this));
    Body()->addLayout(columns);
    connect(secondary_, &QComboBox::currentIndexChanged, this,
            [this] { CmbSpeedSecondary_Click(); });
}

void FrmKdxToolSetJoystickAnalog::CmbSpeedSecondary_Click() {
    const int row = secondary_->currentIndex();
    if (SecondarySpeedRow(row) != row) {
        secondary_->setCurrentIndex(SecondarySpeedRow(row));
    }
}

void FrmKdxToolSetJoystickAnalog::PicSave_MouseDown() {
    SaveRound round(*this);
    auto deadBand = Latin1(deadBand_->text());
    const auto settings = AnalogJoystickSettings(AxisNumber, deadBand, primary_->currentIndex(),
                                                 secondary_->currentIndex());
    deadBand_->setText(Latin1(deadBand));
    Send(settings);
}

} // namespace korval
