#include "DeviceMenus.h"

#include "FrmKdxToolSetAttached.h"
#include "FrmKdxToolSetMotorCalc.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QComboBox>

namespace korval {

void WireDeviceMenus(MdiKorval& mdi) {
    auto& app = App();
    auto* calculator = app.Form<FrmKdxToolSetMotorCalc>("FrmKdxToolSetMotorCalc");
    mdi.SetHandler("MnuToolsSetUpMotorCalculator", [calculator] { calculator->ShowWindow(); });
    for (int axis = 1; axis <= 4; ++axis) {
        auto* chooser =
            app.Form<FrmKdxToolSetAttached>("FrmKdxToolSetAttachment" + std::to_string(axis));
        mdi.SetHandler(QString("MnuToolsSetUpAttachedAxis%1").arg(axis), [chooser, axis] {
            chooser->CmbAxis()->setCurrentIndex(axis - 1);
            chooser->ShowWindow();
        });
    }
}

} // namespace korval
