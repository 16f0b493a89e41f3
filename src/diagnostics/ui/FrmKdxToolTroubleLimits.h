#pragma once
// The limit switches, four "?" a tick through the driver's limit state, motor 1 first.
#include "TroubleshooterForm.h"

namespace korval {

class FrmKdxToolTroubleLimits final : public TroubleshooterForm {
public:
    FrmKdxToolTroubleLimits()
        : TroubleshooterForm(
              "FrmKdxToolTroubleLimits", TroubleshooterKind::Limits,
              {"ReadLimitsTimer", "PicBitVal", "LblBitVal", "LblBitDesc", "LblBit"}) {}
};

} // namespace korval
