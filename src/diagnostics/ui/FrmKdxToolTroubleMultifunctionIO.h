#pragma once
// The multi-function input word, one mode setting a bit.
#include "TroubleshooterForm.h"

namespace korval {

class FrmKdxToolTroubleMultifunctionIO final : public TroubleshooterForm {
public:
    FrmKdxToolTroubleMultifunctionIO()
        : TroubleshooterForm(
              "FrmKdxToolTroubleMultifunctionIO", TroubleshooterKind::MultifunctionIO,
              {"ReadMultiFunctionIOTimer", "PicBitVal", "LblBitVal", "LblBitDesc", "LblBit"}) {}
};

} // namespace korval
