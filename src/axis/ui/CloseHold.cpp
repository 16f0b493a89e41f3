#include "CloseHold.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QEvent>

namespace korval {

CloseHold::CloseHold(std::function<void()> onClose) : onClose_(std::move(onClose)) {
    if (App().mdi != nullptr) {
        App().mdi->installEventFilter(this);
    }
}

CloseHold::~CloseHold() {
    if (App().mdi != nullptr) {
        App().mdi->removeEventFilter(this);
    }
}

bool CloseHold::eventFilter(QObject* watched, QEvent* event) {
    if (watched == App().mdi && event->type() == QEvent::Close) {
        event->ignore();
        onClose_();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace korval
