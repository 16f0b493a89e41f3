#include "FormRegistry.h"

#include "axis/ui/AxisMenus.h"
#include "axis/ui/FrmKdxToolSetAxis.h"
#include "axis/ui/FrmKdxToolWizardSetup.h"
#include "core/ui/CoreMenus.h"
#include "core/ui/FrmDriverDebug.h"
#include "core/ui/FrmKdxAdmin.h"
#include "core/ui/FrmMsgBox.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxDriverCallback.h"
#include "link/ui/FrmKdxDriverRecovery.h"
#include "link/ui/FrmKdxToolDetect.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "link/ui/LinkMenus.h"
#include "motion/ui/FrmKdxToolAutoReverse.h"
#include "motion/ui/FrmKdxToolAxisPositions.h"
#include "motion/ui/FrmKdxToolQuickMoveMulti.h"
#include "motion/ui/FrmKdxToolQuickMoveSingle.h"
#include "motion/ui/FrmKdxToolVirtualJog.h"
#include "motion/ui/MotionMenus.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "scripts/ui/ScriptMenus.h"

namespace korval {

namespace {

template <typename Window> FormBase* make() {
    return new Window();
}

template <int Axis> FormBase* makeAxis() {
    return new FrmKdxToolSetAxis(Axis);
}

FormBase* bringOnline() {
    App().kdx.BringOnline(); // so that information windows read a live controller
    return nullptr;
}

const FormRow Rows[] = {
    {make<MdiKorval>, "Status: KORVAL Loaded", Placement::Frame},
    {nullptr, "Status: Common Components Loaded"}, // the pictures are drawn, ready at once
    {make<FrmMsgBox>, "Status: Messages Loaded", Placement::Hidden},
    {make<FrmKdxDriverCallback>, "", Placement::Hidden},
    {make<FrmDriverDebug>, ""},
    {make<FrmKdxToolWizardSetup>, "Status: Wizard Loaded", Placement::Hidden},
    {make<FrmKdxToolDetect>, "Status: Auto-Detect Loaded"},
    {make<FrmKdxToolSetPort>, "", Placement::ToolBar},
    {makeAxis<1>, "Status: Axis1 Loaded"},
    {makeAxis<2>, "Status: Axis2 Loaded"},
    {makeAxis<3>, "Status: Axis3 Loaded"},
    {makeAxis<4>, "Status: Axis4 Loaded"},
    {make<FrmKdxToolAutoReverse>, "Status: Auto-Reverse Loaded"},
    {make<FrmKdxToolVirtualJog>, "Status: Virtual Jog Loaded"},
    {make<FrmKdxToolQuickMoveSingle>, "Status: Single Axis QuickMove Loaded"},
    {make<FrmKdxToolQuickMoveMulti>, "Status: Simultaneous Axis QuickMove Loaded"},
    {make<FrmKdxToolAxisPositions>, "Status: Axis Positions Loaded"},
    {make<FrmKdxToolTerminal>, "Status: Terminal Loaded"},
    {make<FrmKdxToolScriptEditor>, "Status: Script Editor Loaded"},
    {bringOnline, ""},
    {make<FrmKdxAdmin>, "Status: Administrative Tools Loaded"},
    {make<FrmKdxDriverRecovery>, "Status: Administrative Driver Tools Loaded"},
};

const MenuWiring Wirings[] = {WireCoreMenus, WireLinkMenus, WireScriptMenus, WireAxisMenus,
                              WireMotionMenus};

} // namespace

std::span<const FormRow> FormRegistry() {
    return Rows;
}

std::span<const MenuWiring> MenuWirings() {
    return Wirings;
}

} // namespace korval
