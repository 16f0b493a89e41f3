#include "FormBase.h"

#include "WidgetWalker.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

namespace korval {

FormBase::FormBase(const QString& name, const QString& caption, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setWindowTitle(caption);
}

WalkedForm& FormBase::Walked() {
    if (!walked_) {
        walked_ = std::make_unique<WidgetWalker>(*this);
    }
    return *walked_;
}

void FormBase::ShowWindow() {
    if (subWindow_ != nullptr) {
        subWindow_->show();
        subWindow_->raise();
    }
    show();
    raise();
    activateWindow();
}

void FormBase::HideWindow() {
    if (subWindow_ != nullptr) {
        subWindow_->hide();
    }
    hide();
}

bool FormBase::IsShown() const {
    return isVisible() && (subWindow_ == nullptr || subWindow_->isVisible());
}

bool FormBase::eventFilter(QObject* watched, QEvent* event) {
    if (watched == subWindow_ && event->type() == QEvent::Close) {
        event->ignore(); // closing a tool window hides it; it lives until shutdown
        HideWindow();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace korval
