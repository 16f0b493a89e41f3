#include "AutoReverseMenus.h"

#include "FrmKdxToolAutoReverse.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

namespace korval {

void WireAutoReverseMenus(MdiKorval& mdi) {
    auto* tool = App().Form<FrmKdxToolAutoReverse>("FrmKdxToolAutoReverse");
    mdi.SetHandler("MnuToolsAutoReverse", [tool] { tool->ShowWindow(); });
}

} // namespace korval
