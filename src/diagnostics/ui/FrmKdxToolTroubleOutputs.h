#pragma once
// The user outputs, active high. A controller older than 1.22 has none to read.
#include "TroubleshooterForm.h"

namespace korval {

class FrmKdxToolTroubleOutputs final : public TroubleshooterForm {
public:
    FrmKdxToolTroubleOutputs()
        : TroubleshooterForm(
              "FrmKdxToolTroubleOutputs", TroubleshooterKind::Outputs,
              {"ReadOutputsTimer", "PicIOBitVal", "LblIOBitVal", "LblIOBitDesc", "LblIOBit"}) {}
};

} // namespace korval
