#include "JogArrow.h"

#include <QMouseEvent>

namespace korval {

JogArrow::JogArrow(const QString& name, Symbol symbol, QWidget* parent)
    : PictureButton(name, symbol, parent) {
    // Connected first, so the hold has begun when the window's own handler runs.
    connect(this, &PictureButton::pressed, this, [this] { held_ = true; });
}

void JogArrow::LetGo() {
    if (held_) {
        held_ = false;
        emit letGo();
    }
}

void JogArrow::mouseReleaseEvent(QMouseEvent* event) {
    PictureButton::mouseReleaseEvent(event);
    LetGo();
}

void JogArrow::mouseMoveEvent(QMouseEvent* event) {
    // The press grabs the pointer, so leaving the arrow shows as a move outside it.
    if (!rect().contains(event->position().toPoint())) {
        LetGo();
    }
}

void JogArrow::leaveEvent(QEvent* event) {
    PictureButton::leaveEvent(event);
    LetGo();
}

void JogArrow::hideEvent(QHideEvent* event) {
    PictureButton::hideEvent(event);
    LetGo();
}

void JogArrow::changeEvent(QEvent* event) {
    PictureButton::changeEvent(event);
    if ((event->type() == QEvent::ActivationChange && !isActiveWindow()) ||
        (event->type() == QEvent::EnabledChange && !isEnabled())) {
        LetGo();
    }
}

} // namespace korval
