#include "ConfirmationLabel.h"

#include "axis/DeviceSettings.h"
#include "core/qt/Latin1.h"

namespace korval {

ConfirmationLabel::ConfirmationLabel(QWidget* parent) : QLabel(parent) {
    setObjectName("LblConfirmation");
}

void ConfirmationLabel::Show(bool confirmed) {
    setText(Latin1(SettingConfirmation(confirmed)));
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, confirmed ? QColor(0, 110, 30) : QColor(190, 0, 0));
    setPalette(palette);
    repaint();
}

} // namespace korval
