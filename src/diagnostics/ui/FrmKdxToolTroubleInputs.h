#pragma once
// The jog buttons and user inputs, active low: a pressed switch lights its lamp.
#include "TroubleshooterForm.h"

#include <QPushButton>

namespace korval {

class FrmKdxToolTroubleInputs final : public TroubleshooterForm {
public:
    FrmKdxToolTroubleInputs()
        : TroubleshooterForm(
              "FrmKdxToolTroubleInputs", TroubleshooterKind::Inputs,
              {"ReadInputsTimer", "PicIOBitVal", "LblIOBitVal", "LblIOBitDesc", "LblIOBit"}) {
        // The form has always had this button, and its click has always done nothing: the
        // lamps follow the inputs by themselves.
        auto* refresh = new QPushButton("Refresh", this);
        refresh->setObjectName("CmdRefresh");
        AddButton(refresh);
    }
};

} // namespace korval
