#include "DiagnosticsMenus.h"

#include "FrmKdxInfoDiagnostic.h"
#include "InfoPanel.h"
#include "TroubleshooterForm.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

namespace korval {

namespace {

struct Entry {
    const char* menu;
    const char* form;
};

const Entry Panels[] = {
    {"MnuToolsDiagProcessor", "FrmKdxInfoProcessor"},
    {"MnuToolsDiagOpMode", "FrmKdxInfoOpMode"},
    {"MnuToolsDiagPrograms", "FrmKdxInfoPrograms"},
    {"MnuFileKdxGet", "FrmKdxInfoPrograms"},
    {"MnuToolsDiagAxis", "FrmKdxInfoAxis"},
    {"MnuToolsDiagJoystickAnalog", "FrmKdxInfoJoystickAnalog"},
    {"MnuToolsDiagJoystickDigital", "FrmKdxInfoJoystickDigital"},
    {"MnuToolsDiagOutputPulse", "FrmKdxInfoOutputPulse"},
    {"MnuToolsDiagMultifunctionInputs", "FrmKdxInfoMultiFunctionInputs"},
    {"MnuToolsDiagAnalogInput", "FrmKdxInfoAnalogInput"},
    {"MnuToolsDiagUserOutputs", "FrmKdxInfoOutputs"},
    {"MnuToolsDiagOTravelBacklash", "FrmKdxInfoOTravelBacklash"},
    {"MnuToolsDiagUserInputs", "FrmKdxInfoInputs"},
    {"MnuToolsDiagLimits", "FrmKdxInfoLimitStates"},
};

const Entry Troubleshooters[] = {
    {"MnuToolsTroubleshootLimits", "FrmKdxToolTroubleLimits"},
    {"MnuToolsTroubleshootInputs", "FrmKdxToolTroubleInputs"},
    {"MnuToolsTroubleshootOutputs", "FrmKdxToolTroubleOutputs"},
    {"MnuToolsTroubleshootMultiIO", "FrmKdxToolTroubleMultifunctionIO"},
};

} // namespace

void HideTroubleshooters() {
    for (const auto& t : Troubleshooters) {
        if (auto* form = App().Form<TroubleshooterForm>(t.form)) {
            form->StopPolling();
            form->HideWindow();
        }
    }
}

void WireDiagnosticsMenus(MdiKorval& mdi) {
    auto& app = App();
    for (const auto& p : Panels) {
        // Every opening reads the controller afresh, then shows what it read.
        auto* panel = app.Form<InfoPanel>(p.form);
        mdi.SetHandler(p.menu, [panel] {
            panel->PicRefresh_MouseDown();
            panel->ShowWindow();
        });
    }
    auto* diagnostic = app.Form<FrmKdxInfoDiagnostic>("FrmKdxInfoDiagnostic");
    mdi.SetHandler("MnuToolsDiag", [diagnostic] { diagnostic->ShowWindow(); });
    for (const auto& t : Troubleshooters) {
        auto* form = app.Form<TroubleshooterForm>(t.form);
        mdi.SetHandler(t.menu, [form] {
            HideTroubleshooters();
            form->ShowWindow();
            form->StartPolling(TroubleshooterReading::TickMs);
        });
    }
}

} // namespace korval
