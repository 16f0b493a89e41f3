#include "FormRegistry.h"

#include "axis/ui/DeviceMenus.h"
#include "axis/ui/FrmKdxToolSetAttached.h"
#include "axis/ui/FrmKdxToolSetJogButtons.h"
#include "axis/ui/FrmKdxToolSetJoystickAnalog.h"
#include "axis/ui/FrmKdxToolSetJoystickDigital.h"
#include "axis/ui/FrmKdxToolSetMotorCalc.h"
#include "axis/ui/FrmKdxToolSetThumbwheel.h"
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
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "scripts/ui/ScriptMenus.h"

namespace korval {

namespace {

template <typename Window> FormBase* make() {
    return new Window();
}

// One of the four copies of a per-axis window. Its virtual name is set right after its caption,
// before any setting is read, so that each copy keeps a section of its own.
template <typename Window>
std::function<FormBase*()> copyFor(int axis, const char* caption, const char* virtualName) {
    return [=] {
        auto* window = new Window(axis);
        window->setWindowTitle(caption);
        window->SetVirtualName(virtualName);
        return window;
    };
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
    // (the set-up wizard's row goes here)
    {make<FrmKdxToolDetect>, "Status: Auto-Detect Loaded"},
    {make<FrmKdxToolSetPort>, "", Placement::ToolBar},
    // (the four axis set-up windows' rows go here)
    {make<FrmKdxToolSetMotorCalc>, "Status: Motor Settings Calculator Loaded"},
    // The choosers show the jog rows' texts.
    {copyFor<FrmKdxToolSetAttached>(1, "Set Attached Devices - Axis 1", "FrmKdxToolSetAttachment1"),
     "Status: Axis1 Jogs Loaded"},
    {copyFor<FrmKdxToolSetAttached>(2, "Set Attached Devices - Axis 2", "FrmKdxToolSetAttachment2"),
     "Status: Axis2 Jogs Loaded"},
    {copyFor<FrmKdxToolSetAttached>(3, "Set Attached Devices - Axis 3", "FrmKdxToolSetAttachment3"),
     "Status: Axis3 Jogs Loaded"},
    {copyFor<FrmKdxToolSetAttached>(4, "Set Attached Devices - Axis 4", "FrmKdxToolSetAttachment4"),
     "Status: Axis4 Jogs Loaded"},
    {copyFor<FrmKdxToolSetJogButtons>(1, "Set Jog Buttons - Axis 1", "FrmKdxToolSetJogButtons1"),
     "Status: Axis1 Jogs Loaded"},
    {copyFor<FrmKdxToolSetJogButtons>(2, "Set Jog Buttons - Axis 2", "FrmKdxToolSetJogButtons2"),
     "Status: Axis2 Jogs Loaded"},
    {copyFor<FrmKdxToolSetJogButtons>(3, "Set Jog Buttons - Axis 3", "FrmKdxToolSetJogButtons3"),
     "Status: Axis3 Jogs Loaded"},
    {copyFor<FrmKdxToolSetJogButtons>(4, "Set Jog Buttons - Axis 4", "FrmKdxToolSetJogButtons4"),
     "Status: Axis4 Jogs Loaded"},
    {copyFor<FrmKdxToolSetJoystickAnalog>(1, "Set Analog Joystick - Axis 1",
                                          "FrmKdxToolSetJoystickAnalog1"),
     "Status: Axis1 Analog Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickAnalog>(2, "Set Analog Joystick - Axis 2",
                                          "FrmKdxToolSetJoystickAnalog2"),
     "Status: Axis2 Analog Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickAnalog>(3, "Set Analog Joystick - Axis 3",
                                          "FrmKdxToolSetJoystickAnalog3"),
     "Status: Axis3 Analog Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickAnalog>(4, "Set Analog Joystick - Axis 4",
                                          "FrmKdxToolSetJoystickAnalog4"),
     "Status: Axis4 Analog Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickDigital>(1, "Set Digital Joystick - Axis 1",
                                           "FrmKdxToolSetJoystickDigital1"),
     "Status: Axis1 Digital Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickDigital>(2, "Set Digital Joystick - Axis 2",
                                           "FrmKdxToolSetJoystickDigital2"),
     "Status: Axis2 Digital Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickDigital>(3, "Set Digital Joystick - Axis 3",
                                           "FrmKdxToolSetJoystickDigital3"),
     "Status: Axis3 Digital Joystick Loaded"},
    {copyFor<FrmKdxToolSetJoystickDigital>(4, "Set Digital Joystick - Axis 4",
                                           "FrmKdxToolSetJoystickDigital4"),
     "Status: Axis4 Digital Joystick Loaded"},
    {make<FrmKdxToolSetThumbwheel>, ""},
    {make<FrmKdxToolTerminal>, "Status: Terminal Loaded"},
    {make<FrmKdxToolScriptEditor>, "Status: Script Editor Loaded"},
    {bringOnline, ""},
    {make<FrmKdxAdmin>, "Status: Administrative Tools Loaded"},
    {make<FrmKdxDriverRecovery>, "Status: Administrative Driver Tools Loaded"},
};

const MenuWiring Wirings[] = {
    WireCoreMenus,
    WireLinkMenus,
    WireDeviceMenus,
    WireScriptMenus,
};

} // namespace

std::span<const FormRow> FormRegistry() {
    return Rows;
}

std::span<const MenuWiring> MenuWirings() {
    return Wirings;
}

} // namespace korval
