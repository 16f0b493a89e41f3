#include "AxisMenus.h"

#include "FrmKdxToolSetAxis.h"
#include "FrmKdxToolWizardSetup.h"

#include "axis/AbsentAxisControls.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/Latin1.h"
#include "core/ui/MdiKorval.h"

#include <QAction>

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
        if (auto* form = App().FindForm(c.form)) {
            if (auto* control = form->findChild<QWidget*>(Latin1(c.control))) {
                control->setEnabled(false);
            }
        }
    }
}

} // namespace

void WireAxisMenus(MdiKorval& mdi) {
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
