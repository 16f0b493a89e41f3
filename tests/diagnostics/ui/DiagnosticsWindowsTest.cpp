// The information panels, the complete diagnostic window and the troubleshooters, opened from
// their menus in the running program, with the virtual controller on Com1.
#include "AppFixture.h"

#include "core/ClsReadWriteFile.h"
#include "core/ui/Lamp.h"
#include "core/ui/MdiKorval.h"
#include "diagnostics/ui/FrmKdxInfoDiagnostic.h"
#include "diagnostics/ui/InfoPanel.h"
#include "diagnostics/ui/TroubleshooterForm.h"
#include "sim/SimControl.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTimer>

#include <cstdio>

using namespace korval;
using namespace korval::test;

namespace {

struct DiagnosticsWindows : AppFixture {
    void startWith(const std::string& options) {
        installWithController(options);
        ASSERT_TRUE(start());
    }
    void bench(const std::string& line) {
        controller->withChain([&](sim::KdxChain& chain) {
            std::string answer;
            EXPECT_EQ(sim::ApplyControl(chain, line, answer), sim::ControlResult::Done) << line;
        });
    }
    void menu(const char* name) { app->mdi->Menu(name)->trigger(); }
    template <typename Form> Form* form(const char* name) { return app->Form<Form>(name); }
    std::string lamps(TroubleshooterForm* t) {
        std::string out;
        for (int bit = 0; bit < 8; ++bit) {
            out += t->BitLamp(bit)->lit() ? 'L' : 'd';
        }
        return out;
    }
    std::string values(TroubleshooterForm* t) {
        std::string out;
        for (int bit = 0; bit < 8; ++bit) {
            out += t->BitValue(bit)->text().toStdString();
        }
        return out;
    }
};

// What each panel shows of the virtual controller at power-up; "" for a box that stays empty.
struct PanelCase {
    const char* menu;
    const char* form;
    const char* box;
    const char* twoMotors;
    const char* fourMotors;
};

const PanelCase Panels[] = {
    {"MnuToolsDiagProcessor", "FrmKdxInfoProcessor", "TxtInfo",
     "Version: 1.22\r\nDate: 03/14/2005\r\nMode: Master", nullptr},
    {"MnuToolsDiagOpMode", "FrmKdxInfoOpMode", "TxtInfo", "Invert Motor 1 Direction: False\r\n",
     nullptr},
    {"MnuToolsDiagPrograms", "FrmKdxInfoPrograms", "TxtProgramCurrentAssociate",
     "Current Program Associate: 0\r\n", nullptr},
    {"MnuToolsDiagAxis", "FrmKdxInfoAxis", "TxtAxis2",
     "Setting for Motor2: 0\r\nSetting for Limit2: 1\r\n", nullptr},
    {"MnuToolsDiagAxis", "FrmKdxInfoAxis", "TxtAxis3", "",
     "Setting for Motor3: 0\r\nSetting for Limit3: 1\r\n"},
    {"MnuToolsDiagJoystickAnalog", "FrmKdxInfoJoystickAnalog", "TxtDeadband", "Deadband: 5\r\n",
     nullptr},
    {"MnuToolsDiagJoystickAnalog", "FrmKdxInfoJoystickAnalog", "TxtAxis4", "",
     "Primary Axis 4 Setting:  0 = Disabled\r\nSecondary Axis 4 Setting:  0 = Disabled\r\n"},
    {"MnuToolsDiagJoystickDigital", "FrmKdxInfoJoystickDigital", "TxtAxis1",
     "Primary Setting: 1000\r\nSecondary Setting: 2000\r\n", nullptr},
    {"MnuToolsDiagOutputPulse", "FrmKdxInfoOutputPulse", "TxtPulseWidth", "Pulse Width: 10\r\n",
     nullptr},
    {"MnuToolsDiagMultifunctionInputs", "FrmKdxInfoMultiFunctionInputs", "TxtInfo",
     "Actual value = 3\r\nRun button enabled: True\r\n", nullptr},
    {"MnuToolsDiagAnalogInput", "FrmKdxInfoAnalogInput", "TxtInfo", "Analog Input Value: 128\r\n",
     nullptr},
    {"MnuToolsDiagUserOutputs", "FrmKdxInfoOutputs", "TxtInfo",
     "Actual value = 0\r\nOutput 1 On: False\r\n", nullptr},
    {"MnuToolsDiagOTravelBacklash", "FrmKdxInfoOTravelBacklash", "TxtOverTravel",
     "OverTravel = Disabled\r\n", nullptr},
    {"MnuToolsDiagUserInputs", "FrmKdxInfoInputs", "TxtInfo",
     "Actual value = 255\r\nJog 1 - On: False\r\n", nullptr},
    {"MnuToolsDiagLimits", "FrmKdxInfoLimitStates", "TxtInfo",
     "Actual value = 255\r\nLimit 1 - Activated: False\r\n", nullptr},
};

void checkPanels(DiagnosticsWindows& t, bool four) {
    const char* opened = "";
    for (const auto& p : Panels) {
        auto* panel = t.form<InfoPanel>(p.form);
        if (std::string(opened) != p.menu) { // one opening for the rows of one panel
            t.menu(p.menu);
            opened = p.menu;
        }
        EXPECT_TRUE(panel->IsShown()) << p.form;
        const char* expected = four && p.fourMotors != nullptr ? p.fourMotors : p.twoMotors;
        const auto text = panel->Text(p.box);
        if (*expected == '\0') {
            EXPECT_EQ(text, "") << p.form << "." << p.box;
        } else {
            EXPECT_NE(text.find(expected), std::string::npos)
                << p.form << "." << p.box << ": " << text;
        }
    }
}

std::string slurp(const std::string& path) {
    return readWholeFile(path).value_or("(no file " + path + ")");
}

} // namespace

TEST_F(DiagnosticsWindows, EachPanelShowsATwoMotorController) {
    startWith("arrangement=2");
    checkPanels(*this, false);
}

TEST_F(DiagnosticsWindows, EachPanelShowsAFourMotorController) {
    startWith("arrangement=2+2");
    checkPanels(*this, true);
}

TEST_F(DiagnosticsWindows, EveryOpeningAsksAgainAndEmptiesNothingIntoTheSettings) {
    startWith("");
    auto* panel = form<InfoPanel>("FrmKdxInfoAnalogInput");
    menu("MnuToolsDiagAnalogInput");
    EXPECT_EQ(panel->Text("TxtInfo"), "Analog Input Value: 128\r\n");
    bench("analog 77");
    menu("MnuToolsDiagAnalogInput");
    EXPECT_EQ(panel->Text("TxtInfo"), "Analog Input Value: 77\r\n") << "the second opening asked";
    stop();
    const auto settings = slurp(settingsFile());
    EXPECT_NE(settings.find("[FrmKdxInfoAnalogInput]"), std::string::npos);
    EXPECT_EQ(settings.find("Analog Input Value"), std::string::npos) << "panel text not saved";
}

TEST_F(DiagnosticsWindows, TheProgramsPanelLeavesTheCurrentProgramAsItWas) {
    startWith("");
    app->kdx.SendCommandsToPort(",PM2,C,S1M2000,I1M-400,");
    app->delay.TimeDelay(0.3);
    menu("MnuFileKdxGet");
    auto* programs = form<InfoPanel>("FrmKdxInfoPrograms");
    EXPECT_TRUE(programs->IsShown());
    EXPECT_EQ(programs->Text("TxtProgramCurrent"), "Current Program: 2\r\n");
    EXPECT_NE(programs->Text("TxtProgram2").find("I1M-400,"), std::string::npos)
        << programs->Text("TxtProgram2");
    app->delay.TimeDelay(0.3);
    int current = -1;
    controller->withChain([&](sim::KdxChain& chain) { current = chain.currentProgram(); });
    EXPECT_EQ(current, 2);
}

TEST_F(DiagnosticsWindows, PressedSwitchesLightTheirLampsAndEnterTheTimeline) {
    startWith("arrangement=2+2");
    app->kdx.SendCommandsToPort("getD0,"); // a reply nobody reads is left waiting at the port
    app->delay.TimeDelay(0.2);
    menu("MnuToolsTroubleshootInputs");
    auto* inputs = form<TroubleshooterForm>("FrmKdxToolTroubleInputs");
    ASSERT_TRUE(inputs->Polling());
    EXPECT_EQ(inputs->Timer()->interval(), 250);
    const struct {
        const char* press;
        const char* lamps;
        const char* values;
    } steps[] = {
        {"", "dddddddd", "11111111"}, // 0xFF: nothing pressed
        {"input 1 on", "ddddLddd", "11110111"},
        {"jog 1 + on", "dLddLddd", "10110111"},
        {"input 1 off", "dLdddddd", "10111111"},
    };
    for (const auto& s : steps) {
        if (*s.press != '\0') {
            bench(s.press);
        }
        app->delay.TimeDelay(0.5);
        EXPECT_EQ(lamps(inputs), s.lamps) << s.press;
        EXPECT_EQ(values(inputs), s.values) << s.press;
    }
    const auto timeline = inputs->TxtTimeline()->toPlainText().toStdString();
    for (const char* line :
         {"bit 4  Input 1  1 -> 0", "bit 1  Jog 1 Positive  1 -> 0", "bit 4  Input 1  0 -> 1"}) {
        EXPECT_NE(timeline.find(line), std::string::npos) << timeline;
    }
    inputs->CmdCopyTimeline_Click();
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), timeline + "\n");

    menu("MnuToolsTroubleshootLimits");
    auto* limits = form<TroubleshooterForm>("FrmKdxToolTroubleLimits");
    bench("limit 3 + on");
    app->delay.TimeDelay(0.9);
    EXPECT_EQ(lamps(limits), "LLLLLdLL") << "a hit limit's bit is 0, the dim picture";
    EXPECT_EQ(values(limits), "11111011");
}

// The mask bytes "{" and NUL, each as a switch pattern on the controller.
TEST_F(DiagnosticsWindows, EveryMaskByteReachesTheLamps) {
    // Known driver defect: its framing swallows "{" and its C interface drops a NUL.
    startWith("arrangement=2+2");
    app->kdx.SendCommandsToPort("C,setI1,rsm"); // Input 4 an input, not the Stop button
    app->delay.TimeDelay(0.3);
    menu("MnuToolsTroubleshootInputs");
    auto* inputs = form<TroubleshooterForm>("FrmKdxToolTroubleInputs");
    const struct {
        std::vector<const char*> press;
        const char* lamps;
        const char* values;
    } masks[] = {
        {{"jog 2 - on", "input 4 on"}, "ddLddddL", "11011110"}, // 0x7B
        {{"jog 1 - on", "jog 1 + on", "jog 2 + on", "input 1 on", "input 2 on", "input 3 on"},
         "LLLLLLLL",
         "00000000"}, // 0x00
    };
    for (const auto& m : masks) {
        for (const char* line : m.press) {
            bench(line);
        }
        app->delay.TimeDelay(0.5);
        EXPECT_EQ(lamps(inputs), m.lamps);
        EXPECT_EQ(values(inputs), m.values);
    }
}

TEST_F(DiagnosticsWindows, OnlyOneTroubleshooterPollsAndNoneWithThePortClosed) {
    startWith("");
    const char* const menus[] = {"MnuToolsTroubleshootInputs", "MnuToolsTroubleshootOutputs",
                                 "MnuToolsTroubleshootMultiIO", "MnuToolsTroubleshootLimits"};
    const char* const forms[] = {"FrmKdxToolTroubleInputs", "FrmKdxToolTroubleOutputs",
                                 "FrmKdxToolTroubleMultifunctionIO", "FrmKdxToolTroubleLimits"};
    for (int opened = 0; opened < 4; ++opened) {
        menu(menus[opened]);
        for (int i = 0; i < 4; ++i) {
            auto* t = form<TroubleshooterForm>(forms[i]);
            EXPECT_EQ(t->Polling(), i == opened) << forms[i] << " after " << menus[opened];
            EXPECT_EQ(t->IsShown(), i == opened) << forms[i];
        }
        EXPECT_EQ(app->lineHeld, 1) << "the terminal keeps off the line";
    }
    auto* limits = form<TroubleshooterForm>("FrmKdxToolTroubleLimits");
    setPort()->ChkPortOpen()->setChecked(false);
    EXPECT_FALSE(limits->Polling());
    EXPECT_EQ(app->lineHeld, 0);
    setPort()->ChkPortOpen()->setChecked(true);
    EXPECT_TRUE(limits->Polling()) << "still open when the port comes back";
    limits->SubWindow()->close();
    EXPECT_FALSE(limits->Polling());
    EXPECT_FALSE(limits->IsShown());
    EXPECT_EQ(app->lineHeld, 0);

    app->kdx.SendCommandsToPort("C,setI67,rsm");
    app->delay.TimeDelay(0.3);
    menu("MnuToolsTroubleshootMultiIO");
    app->delay.TimeDelay(0.5);
    EXPECT_EQ(values(form<TroubleshooterForm>("FrmKdxToolTroubleMultifunctionIO")), "11000010");
}

TEST_F(DiagnosticsWindows, APanelOpenedWhileATroubleshooterPollsReadsCleanly) {
    startWith("arrangement=2+2");
    for (const char* name : {"Limits", "Inputs"}) {
        menu((std::string("MnuToolsTroubleshoot") + name).c_str());
        auto* t = form<TroubleshooterForm>((std::string("FrmKdxToolTrouble") + name).c_str());
        app->delay.TimeDelay(0.6);
        const auto before = lamps(t);
        menu("MnuToolsDiagAnalogInput"); // while a tick waits for its reply, most likely
        EXPECT_EQ(form<InfoPanel>("FrmKdxInfoAnalogInput")->Text("TxtInfo"),
                  "Analog Input Value: 128\r\n")
            << name;
        app->delay.TimeDelay(0.6);
        EXPECT_TRUE(t->Polling()) << name;
        EXPECT_EQ(lamps(t), before) << name;
        EXPECT_EQ(t->TxtTimeline()->toPlainText().toStdString(), "")
            << name << ": the panel's reply is no change";
    }
}

TEST_F(DiagnosticsWindows, AnOlderControllerHasNoOutputsTroubleshooter) {
    startWith("firmware=1.21");
    menu("MnuToolsTroubleshootOutputs");
    app->delay.TimeDelay(0.5);
    auto* outputs = form<TroubleshooterForm>("FrmKdxToolTroubleOutputs");
    EXPECT_FALSE(outputs->IsShown());
    EXPECT_FALSE(outputs->Polling());
    ASSERT_FALSE(prompts.asked.empty());
    EXPECT_EQ(prompts.asked.back(), "Outputs Error: Outputs Troubleshooter cannot be used with a "
                                    "KDX version lower than 1.22");
}

TEST_F(DiagnosticsWindows, TheWindowsReportIsTheCommandLinesByteForByte) {
    startWith("arrangement=2+2");
    menu("MnuToolsDiag");
    auto* diagnostic = form<FrmKdxInfoDiagnostic>("FrmKdxInfoDiagnostic");
    ASSERT_TRUE(diagnostic->PicRefresh_MouseDown());
    EXPECT_EQ(diagnostic->Progress()->value(), diagnostic->Progress()->maximum());
    EXPECT_EQ(form<InfoPanel>("FrmKdxInfoAxis")->Text("TxtAxis4"),
              "Setting for Motor4: 0\r\nSetting for Limit4: 1\r\n")
        << "the panels show what the scan read";
    prompts.saves = {folder.file("window"), folder.file("missing/r")};
    diagnostic->PicSave_MouseDown();
    const auto command = std::string(KORVAL_CLI) + " --sim=arrangement=2+2 diag --output " +
                         folder.file("cli") + " 2>/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(slurp(folder.file("window.txt")), slurp(folder.file("cli.txt")));
    EXPECT_EQ(slurp(folder.file("window.txt")), diagnostic->Text());

    prompts.asked.clear();
    diagnostic->PicSave_MouseDown();
    ASSERT_EQ(prompts.asked.size(), 2u);
    EXPECT_NE(prompts.asked[1].find("The diagnostic was not saved: "), std::string::npos);
    EXPECT_NE(prompts.asked[1].find("missing/r.txt"), std::string::npos) << prompts.asked[1];
}

TEST_F(DiagnosticsWindows, TheStopButtonEndsAScan) {
    startWith("");
    app->replyTiming.exact = true; // the fixed waits keep the scan under way when Stop comes
    menu("MnuToolsDiag");
    auto* diagnostic = form<FrmKdxInfoDiagnostic>("FrmKdxInfoDiagnostic");
    QTimer::singleShot(1500, [this] { app->mdi->PicStopButton_MouseDown(); });
    ASSERT_TRUE(diagnostic->PicRefresh_MouseDown());
    EXPECT_EQ(diagnostic->Text().rfind("Scanning Processor\r\n", 0), 0u);
    EXPECT_TRUE(diagnostic->Text().ends_with(" Complete\r\nScan Stopped\r\n"))
        << diagnostic->Text();
    EXPECT_LT(diagnostic->Progress()->value(), 22);
    EXPECT_EQ(app->lineHeld, 0);
}
