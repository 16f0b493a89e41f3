#pragma once
// Whether the thumbwheel selector switch picks the program to run: one setting for the whole
// controller, sent as soon as the box changes.
#include "ConfirmationLabel.h"

#include "core/ui/FormBase.h"

class QCheckBox;

namespace korval {

class FrmKdxToolSetThumbwheel final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolSetThumbwheel();

    QCheckBox* ChkUseThumbwheel() const { return use_; }
    ConfirmationLabel* LblConfirmation() const { return confirmation_; }

    void ChkUseThumbwheel_Click();

private:
    QCheckBox* use_;
    ConfirmationLabel* confirmation_;
};

} // namespace korval
