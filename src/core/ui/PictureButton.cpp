#include "PictureButton.h"

#include <QMouseEvent>
#include <QPainter>

namespace korval {

PictureButton::PictureButton(const QString& name, Symbol symbol, QWidget* parent)
    : QWidget(parent), picture_{symbol, false} {
    setObjectName(name);
    setFixedSize(sizeHint());
    setCursor(Qt::PointingHandCursor);
}

void PictureButton::setPicture(const Picture& picture) {
    if (picture == picture_) {
        return;
    }
    picture_ = picture;
    update();
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    paintPicture(p, rect(), picture_, isEnabled());
}

void PictureButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isEnabled()) {
        emit pressed();
    }
}

void PictureButton::mouseReleaseEvent(QMouseEvent*) {
    showUp();
}

} // namespace korval
