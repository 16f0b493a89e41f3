#include "FormControls.h"

#include "KorvalServices.h"

#include "core/ClsFormControl.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>

namespace korval {

namespace {

bool setObjEnabled(std::string_view form, const QString& control, bool enabled) {
    // No name would match a window without a virtual name, and its controls are not meant.
    auto* window = form.empty() ? nullptr : App().FindForm(form);
    auto* widget = window != nullptr ? window->findChild<QWidget*>(control) : nullptr;
    if (widget == nullptr) {
        return false;
    }
    widget->setEnabled(enabled);
    return true;
}

// Drops the key presses whose typed character the rule refuses.
class TypedKeyFilter final : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const auto text = static_cast<QKeyEvent*>(event)->text();
            if (!text.isEmpty() && !ClsFormControl::ComboKeyPress(text.at(0).unicode())) {
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

bool FormControls::DisableObj(std::string_view form, const QString& control) {
    return setObjEnabled(form, control, false);
}

bool FormControls::EnableObj(std::string_view form, const QString& control) {
    return setObjEnabled(form, control, true);
}

void FormControls::TakeNoTypedText(QComboBox& combo) {
    auto* filter = new TypedKeyFilter(&combo);
    combo.installEventFilter(filter);
    combo.view()->installEventFilter(filter);
}

} // namespace korval
