#pragma once
// Keys typed into a text box go through the program's own rule (ClsFormControl.TextBoxKeyPress)
// rather than the control's; then the box's handler runs, as it does when the box is left.
// Keys the rule does not know (Delete, Home, the arrows, shortcuts) stay with the control.
#include <QObject>

#include <functional>

class QLineEdit;

namespace korval {

class TextBoxKeyFilter final : public QObject {
    Q_OBJECT
public:
    // Installs itself on `box`, which owns it.
    TextBoxKeyFilter(QLineEdit& box, std::function<void()> handler);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit& box_;
    std::function<void()> handler_;
};

} // namespace korval
