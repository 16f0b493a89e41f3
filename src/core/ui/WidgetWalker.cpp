#include "WidgetWalker.h"

#include "FormBase.h"
#include "core/qt/Latin1.h"

#include "core/SettingsValue.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace korval {

namespace {

// Each kind reads and writes its value as the settings file keeps it; setting it goes through
// the widget's own setter, so its change handler runs as for a user's change.
template <typename Widget> class Control final : public WalkedControl {
public:
    Control(Widget* w, ControlKind kind) : widget_(w), kind_(kind) {}
    ControlKind Kind() const override { return kind_; }
    std::string Name() const override { return Latin1(widget_->objectName()); }
    std::string Value() const override;
    void SetValue(const std::string& value) override;

private:
    QPointer<Widget> widget_;
    ControlKind kind_;
};

template <> std::string Control<QComboBox>::Value() const {
    return std::to_string(widget_->currentIndex());
}
template <> void Control<QComboBox>::SetValue(const std::string& v) {
    if (const auto index = ListIndexWithin(v, widget_->count())) {
        widget_->setCurrentIndex(*index);
    }
}
template <> std::string Control<QRadioButton>::Value() const {
    return widget_->isChecked() ? "True" : "False";
}
template <> void Control<QRadioButton>::SetValue(const std::string& v) {
    widget_->setChecked(v == "True");
}
template <> std::string Control<QCheckBox>::Value() const {
    return widget_->isChecked() ? "1" : "0";
}
template <> void Control<QCheckBox>::SetValue(const std::string& v) {
    widget_->setChecked(v != "0");
}
template <> std::string Control<QLineEdit>::Value() const {
    return Latin1(widget_->text());
}
template <> void Control<QLineEdit>::SetValue(const std::string& v) {
    widget_->setText(Latin1(v));
}
template <> std::string Control<QPlainTextEdit>::Value() const {
    return Latin1(widget_->toPlainText().replace('\n', "\r\n"));
}
template <> void Control<QPlainTextEdit>::SetValue(const std::string& v) {
    widget_->setPlainText(Latin1(v));
}
template <> std::string Control<QAction>::Value() const {
    if (widget_->isVisible()) {
        return widget_->isEnabled() ? "True" : "False";
    }
    // A hidden action reads as disabled, whatever it was set to. Its own state comes back while
    // it is shown, so it is shown for the moment of the reading, with its signals held.
    const QSignalBlocker quiet(widget_.data());
    widget_->setVisible(true);
    const bool enabled = widget_->isEnabled();
    widget_->setVisible(false);
    return enabled ? "True" : "False";
}
template <> void Control<QAction>::SetValue(const std::string& v) {
    widget_->setEnabled(BooleanFromText(v));
}

bool named(const QObject* o, const char* prefix) {
    return o->objectName().startsWith(prefix);
}

// True when the nearest window above the object is `form`: the windows adopted into the MDI
// area inside the main window keep their controls to themselves.
bool ownedBy(const QObject* o, const FormBase* form) {
    for (const QObject* p = o->parent(); p != nullptr; p = p->parent()) {
        if (const auto* window = qobject_cast<const FormBase*>(p)) {
            return window == form;
        }
    }
    return false;
}

} // namespace

std::string WidgetWalker::Name() const {
    return form_.Name();
}
std::string WidgetWalker::GetVirtualName() const {
    return form_.GetVirtualName();
}

QWidget* WidgetWalker::frame() const {
    return form_.SubWindow() != nullptr ? static_cast<QWidget*>(form_.SubWindow())
                                        : static_cast<QWidget*>(&form_);
}

int WidgetWalker::Top() const {
    return frame()->y();
}
int WidgetWalker::Left() const {
    return frame()->x();
}
void WidgetWalker::SetTop(int top) {
    frame()->move(frame()->x(), top);
}
void WidgetWalker::SetLeft(int left) {
    frame()->move(left, frame()->y());
}

std::vector<WalkedControl*> WidgetWalker::Controls() {
    controls_.clear();
    for (auto* a : form_.findChildren<QAction*>()) {
        if (named(a, "Mnu") && !a->isSeparator() && ownedBy(a, &form_)) {
            controls_.push_back(std::make_unique<Control<QAction>>(a, ControlKind::Menu));
        }
    }
    for (auto* w : form_.findChildren<QComboBox*>()) {
        if (named(w, "Cmb") && ownedBy(w, &form_)) {
            controls_.push_back(std::make_unique<Control<QComboBox>>(w, ControlKind::Combo));
        }
    }
    for (auto* w : form_.findChildren<QRadioButton*>()) {
        if (named(w, "Opt") && ownedBy(w, &form_)) {
            controls_.push_back(std::make_unique<Control<QRadioButton>>(w, ControlKind::Option));
        }
    }
    for (auto* w : form_.findChildren<QLineEdit*>()) {
        if (named(w, "Txt") && ownedBy(w, &form_)) {
            controls_.push_back(std::make_unique<Control<QLineEdit>>(w, ControlKind::Text));
        }
    }
    for (auto* w : form_.findChildren<QPlainTextEdit*>()) {
        if (named(w, "Txt") && ownedBy(w, &form_)) {
            controls_.push_back(std::make_unique<Control<QPlainTextEdit>>(w, ControlKind::Text));
        }
    }
    for (auto* w : form_.findChildren<QCheckBox*>()) {
        if (named(w, "Chk") && ownedBy(w, &form_)) {
            controls_.push_back(std::make_unique<Control<QCheckBox>>(w, ControlKind::Check));
        }
    }
    std::vector<WalkedControl*> out;
    for (auto& c : controls_) {
        out.push_back(c.get());
    }
    return out;
}

} // namespace korval
