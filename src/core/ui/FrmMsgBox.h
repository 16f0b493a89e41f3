#pragma once
#include "FormBase.h"

class QLabel;

namespace korval {

// A small notice that shows "Please Wait" during slow work without blocking.
class FrmMsgBox final : public FormBase {
    Q_OBJECT
public:
    FrmMsgBox();
    void SetMessage(const QString& text);

private:
    QLabel* message_;
};

} // namespace korval
