#include "TextBoxKeyFilter.h"

#include "core/qt/Latin1.h"

#include "core/ClsFormControl.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <optional>

namespace korval {

namespace {

// The key as the rule numbers it; none for a key it leaves to the control.
std::optional<int> keyCode(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Backspace) {
        return ClsFormControl::Backspace;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        return ClsFormControl::Enter;
    }
    const auto text = key.text();
    if (text.size() != 1 || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) ||
        text[0].unicode() < 32 || text[0].unicode() == 127) {
        return std::nullopt;
    }
    return text[0].unicode();
}

} // namespace

TextBoxKeyFilter::TextBoxKeyFilter(QLineEdit& box, std::function<void()> handler)
    : QObject(&box), box_(box), handler_(std::move(handler)) {
    box.installEventFilter(this);
}

bool TextBoxKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &box_ || event->type() != QEvent::KeyPress || box_.isReadOnly()) {
        return false;
    }
    const auto code = keyCode(*static_cast<QKeyEvent*>(event));
    if (!code) {
        return false;
    }
    if (*code > 255) {
        return true; // the settings file and the controller are single-byte
    }
    const bool selected = box_.hasSelectedText();
    TextBoxState state{Latin1(box_.text()),
                       selected ? box_.selectionStart() : box_.cursorPosition(),
                       selected ? static_cast<int>(box_.selectedText().size()) : 0};
    state = ClsFormControl::TextBoxKeyPress(std::move(state), *code);
    box_.setText(Latin1(state.text));
    box_.setCursorPosition(state.selStart);
    handler_();
    return true;
}

} // namespace korval
