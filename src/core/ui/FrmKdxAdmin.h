#pragma once
// Administrator settings: menus hidden from everyday users while their box is checked.
#include "FormBase.h"

namespace korval {

class FrmKdxAdmin final : public FormBase {
    Q_OBJECT
public:
    FrmKdxAdmin();
};

} // namespace korval
