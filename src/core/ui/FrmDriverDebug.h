#pragma once
// The driver's debug window: what went to the controller and what came back, with times.
#include "FormBase.h"

class QPlainTextEdit;

namespace korval {

class FrmDriverDebug final : public FormBase {
    Q_OBJECT
public:
    FrmDriverDebug();
    void Append(const std::string& lines);

private:
    QPlainTextEdit* traffic_;
};

} // namespace korval
