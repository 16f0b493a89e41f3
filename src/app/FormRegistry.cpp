#include "FormRegistry.h"

#include "axis/ui/AxisMenus.h"
#include "axis/ui/FrmKdxToolSetAttached.h"
#include "axis/ui/FrmKdxToolSetAxis.h"
#include "axis/ui/FrmKdxToolSetJogButtons.h"
#include "axis/ui/FrmKdxToolSetJoystickAnalog.h"
#include "axis/ui/FrmKdxToolSetJoystickDigital.h"
#include "axis/ui/FrmKdxToolSetMotorCalc.h"
#include "axis/ui/FrmKdxToolSetThumbwheel.h"
#include "axis/ui/FrmKdxToolWizardSetup.h"
#include "core/ui/CoreMenus.h"
#include "core/ui/FrmDriverDebug.h"
#include "core/ui/FrmKdxAdmin.h"
#include "core/ui/FrmMsgBox.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "diagnostics/ui/DiagnosticsMenus.h"
#include "diagnostics/ui/FrmKdxInfoAnalogInput.h"
#include "diagnostics/ui/FrmKdxInfoAxis.h"
#include "diagnostics/ui/FrmKdxInfoDiagnostic.h"
#include "diagnostics/ui/FrmKdxInfoInputs.h"
#include "diagnostics/ui/FrmKdxInfoJoystickAnalog.h"
#include "diagnostics/ui/FrmKdxInfoJoystickDigital.h"
#include "diagnostics/ui/FrmKdxInfoLimitStates.h"
#include "diagnostics/ui/FrmKdxInfoMultiFunctionInputs.h"
#include "diagnostics/ui/FrmKdxInfoOTravelBacklash.h"
#include "diagnostics/ui/FrmKdxInfoOpMode.h"
#include "diagnostics/ui/FrmKdxInfoOutputPulse.h"
#include "diagnostics/ui/FrmKdxInfoOutputs.h"
#include "diagnostics/ui/FrmKdxInfoProcessor.h"
#include "diagnostics/ui/FrmKdxInfoPrograms.h"
#include "diagnostics/ui/FrmKdxToolTroubleInputs.h"
#include "diagnostics/ui/FrmKdxToolTroubleLimits.h"
#include "diagnostics/ui/FrmKdxToolTroubleMultifunctionIO.h"
#include "diagnostics/ui/FrmKdxToolTroubleOutputs.h"
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
    {make<FrmKdxToolWizardSetup>, "Status: Wizard Loaded", Placement::Hidden},
    {make<FrmKdxToolDetect>, "Status: Auto-Detect Loaded"},
    {make<FrmKdxToolSetPort>, "", Placement::ToolBar},
    {copyFor<FrmKdxToolSetAxis>(1, "Axis 1", "FrmKdxToolSetAxis1"), "Status: Axis1 Loaded"},
    {copyFor<FrmKdxToolSetAxis>(2, "Axis 2", "FrmKdxToolSetAxis2"), "Status: Axis2 Loaded"},
    {copyFor<FrmKdxToolSetAxis>(3, "Axis 3", "FrmKdxToolSetAxis3"), "Status: Axis3 Loaded"},
    {copyFor<FrmKdxToolSetAxis>(4, "Axis 4", "FrmKdxToolSetAxis4"), "Status: Axis4 Loaded"},
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
    {make<FrmKdxToolAutoReverse>, "Status: Auto-Reverse Loaded"},
    {make<FrmKdxToolVirtualJog>, "Status: Virtual Jog Loaded"},
    {make<FrmKdxToolQuickMoveSingle>, "Status: Single Axis QuickMove Loaded"},
    {make<FrmKdxToolQuickMoveMulti>, "Status: Simultaneous Axis QuickMove Loaded"},
    {make<FrmKdxToolAxisPositions>, "Status: Axis Positions Loaded"},
    {make<FrmKdxToolTerminal>, "Status: Terminal Loaded"},
    {make<FrmKdxToolScriptEditor>, "Status: Script Editor Loaded"},
    {bringOnline, ""},
    {make<FrmKdxInfoProcessor>, "Status: Processor Info Loaded"},
    {make<FrmKdxInfoOpMode>, "Status: Operating Mode Loaded"},
    {make<FrmKdxInfoPrograms>, "Status: Program Info Loaded"},
    {make<FrmKdxInfoAxis>, "Status: Axis Info Loaded"},
    {make<FrmKdxInfoJoystickAnalog>, "Status: Analog Joystick Info Loaded"},
    {make<FrmKdxInfoJoystickDigital>, "Status: Digital Joystick Info Loaded"},
    {make<FrmKdxInfoOutputPulse>, "Status: Output Pulse Info Loaded"},
    {make<FrmKdxInfoMultiFunctionInputs>, "Status: Multifunction Inputs Info Loaded"},
    {make<FrmKdxInfoAnalogInput>, "Status: Analog Input Info Loaded"},
    {make<FrmKdxInfoOutputs>, "Status: User Outputs Info Loaded"},
    {make<FrmKdxInfoOTravelBacklash>, "Status: Overtravel and Backlash Info Loaded"},
    {make<FrmKdxInfoInputs>, "Status: User Inputs Info Loaded"},
    {make<FrmKdxInfoLimitStates>, "Status: Limit States Info Loaded"},
    {make<FrmKdxInfoDiagnostic>, "Status: Diagnostic Info Loaded"},
    {make<FrmKdxToolTroubleLimits>, "Status: Limits Troubleshooter Loaded"},
    {make<FrmKdxToolTroubleMultifunctionIO>,
     "Status: Multifunction User I-O Troubleshooter Loaded"},
    {make<FrmKdxToolTroubleInputs>, "Status: User Inputs Troubleshooter Loaded"},
    {make<FrmKdxToolTroubleOutputs>, "Status: User Outputs Troubleshooter Loaded"},
    {make<FrmKdxAdmin>, "Status: Administrative Tools Loaded"},
    {make<FrmKdxDriverRecovery>, "Status: Administrative Driver Tools Loaded"},
};

const MenuWiring Wirings[] = {WireCoreMenus, WireLinkMenus,   WireScriptMenus,
                              WireAxisMenus, WireMotionMenus, WireDiagnosticsMenus};

} // namespace

std::span<const FormRow> FormRegistry() {
    return Rows;
}

std::span<const MenuWiring> MenuWirings() {
    return Wirings;
}

} // namespace korval
