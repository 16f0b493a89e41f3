#include "FocusKeeper.h"

#include <QApplication>
#include <QLineEdit>

namespace korval {

FocusKeeper::FocusKeeper() {
    window_ = QApplication::activeWindow();
    control_ = QApplication::focusWidget();
    if (auto* edit = qobject_cast<QLineEdit*>(control_.data())) {
        caret_ = edit->cursorPosition();
    }
}

FocusKeeper::~FocusKeeper() {
    if (!control_) {
        return;
    }
    if (auto* edit = qobject_cast<QLineEdit*>(control_.data()); edit != nullptr && caret_ >= 0) {
        edit->setCursorPosition(caret_);
    }
    if (window_ && window_->isVisible()) {
        window_->activateWindow();
    }
    if (control_->isVisible()) {
        control_->setFocus();
    }
}

} // namespace korval
