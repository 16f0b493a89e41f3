#include "CentreOnScreen.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

namespace korval {

void CentreOnScreen(QWidget& w) {
    if (const auto* screen = QApplication::primaryScreen()) {
        const auto area = screen->availableGeometry();
        w.move(area.x() + (area.width() - w.width()) / 2,
               area.y() + (area.height() - w.height()) / 2);
    }
}

} // namespace korval
