#include "AxisMenus.h"

#include "FrmKdxToolSetAttached.h"
#include "FrmKdxToolSetAxis.h"
#include "FrmKdxToolSetMotorCalc.h"
#include "FrmKdxToolWizardSetup.h"

#include "axis/AbsentAxisControls.h"
#include "core/qt/Latin1.h"
#include "core/ui/FormControls.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QAction>
#include <QComboBox>

namespace korval {

namespace {

QString axisMenu(int axis) {
    return QString("MnuToolsSetUpAxis%1").arg(axis);
}

// After the wizard, the motion tools lose the controls of the axes it left without a menu;
// they are reached by name, whichever of them are loaded.
void disableAbsentAxes(MdiKorval& mdi) {
    const auto menuOn = [&mdi](int axis) { return mdi.Menu(axisMenu(axis))->isEnabled(); };
    for (const auto& c : ControlsOfAbsentAxes(menuOn)) {
        FormControls::DisableObj(c.form, Latin1(c.control));
    }
}

// The motor calculator, and each axis's chooser of attached devices.
void wireDevices(MdiKorval& mdi) {
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

} // namespace

void WireAxisMenus(MdiKorval& mdi) {
    wireDevices(mdi);
    auto& app = App();
    for (int axis = 1; axis <= 4; ++axis) {
        auto* tool = app.Form<FrmKdxToolSetAxis>("FrmKdxToolSetAxis" + std::to_string(axis));
        mdi.SetHandler(axisMenu(axis), [tool] {
            tool->ShowWindow();
            if (App().PortIsOpen()) {
                tool->MatchWithKDX(); // show what the controller holds, not last run's rows
            }
        });
    }
    auto* wizard = app.Form<FrmKdxToolWizardSetup>("FrmKdxToolWizardSetup");
    mdi.SetHandler("MnuWizard", [&mdi, wizard] {
        wizard->RunWizard();
        disableAbsentAxes(mdi);
    });
}

} // namespace korval
