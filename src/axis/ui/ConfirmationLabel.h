#pragma once
// The line under a device window's controls that says whether the controller confirmed the
// settings last sent: a setting that got no answer must not pass for a stored one.
#include <QLabel>

namespace korval {

class ConfirmationLabel final : public QLabel {
    Q_OBJECT
public:
    explicit ConfirmationLabel(QWidget* parent);
    void Show(bool confirmed);
};

} // namespace korval
