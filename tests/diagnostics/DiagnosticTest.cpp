#include "FakeController.h"

#include <functional>

using namespace korval;
using namespace korval::testing;

namespace {

using Method = std::function<std::string(ClsKdxDiagnostic&, TextTarget*)>;

} // namespace

TEST_F(DiagnosticFixture, SingleValueMethodsFollowTheQueryFrame) {
    const struct {
        Method method;
        const char* query;
        const char* reply;
        const char* text;
    } cases[] = {
        {&ClsKdxDiagnostic::GetCurrentProgram, "PM,", "2\r", "Current Program: 2\r\n"},
        {&ClsKdxDiagnostic::GetCurrentProgramAssociate, "PMA,", "4\r",
         "Current Program Associate: 4\r\n"},
        {&ClsKdxDiagnostic::GetDeadBand, "getDA,", "20\r", "Deadband: 20\r\n"},
        {&ClsKdxDiagnostic::GetPulseWidth, "getPA,", "10\r", "Pulse Width: 10\r\n"},
        {&ClsKdxDiagnostic::GetAnalogInput, "@", "512\r", "Analog Input Value: 512\r\n"},
        {&ClsKdxDiagnostic::GetDeadBand, "getDA,", "", "Deadband: "},
    };
    for (const auto& c : cases) {
        SetUp();
        pointer.changes.clear();
        const auto start = clock.elapsedMs();
        controller.replies = {{c.query, c.reply}};
        TextBox box;
        EXPECT_EQ(c.method(diagnostic, &box), c.text) << c.query;
        EXPECT_EQ(box.text, c.text);
        const std::vector<std::string> calls = {"send K,Q,F", "clear",
                                                std::string("send ") + c.query, "read"};
        EXPECT_EQ(controller.calls, calls);
        EXPECT_EQ(controller.sends[1].second - controller.sends[0].second, 100) << "prologue wait";
        EXPECT_EQ(clock.elapsedMs() - start, 200) << "prologue and reply waits";
        EXPECT_EQ(pointer.changes, (std::vector<bool>{true, false}));
        EXPECT_EQ(c.method(diagnostic, nullptr), c.text) << "works with no control";
    }
}

TEST_F(DiagnosticFixture, ProcessorShowsTheMasterModeOnlyForTwoAndFour) {
    const struct {
        const char* mode;
        const char* text;
    } cases[] = {
        {"2\r", "Version: 1.22\r\nDate: 03/14/05\r\nMode: Master"},
        {"4\r", "Version: 1.22\r\nDate: 03/14/05\r\nMode: Master"},
        {"3\r", "Version: 1.22\r\nDate: 03/14/05\r\n"},
        {"2.5\r", "Version: 1.22\r\nDate: 03/14/05\r\n"},
        {"", "Version: 1.22\r\nDate: 03/14/05\r\n"},
    };
    for (const auto& c : cases) {
        SetUp();
        controller.replies = {{"getD0,", "1.22\r"}, {"getD1,", "03/14/05\r"}, {"getD2,", c.mode}};
        EXPECT_EQ(diagnostic.GetProcessor(), c.text) << c.mode;
    }
    const std::vector<std::string> calls = {"send K,Q,F",  "clear",       "send getD0,", "read",
                                            "clear",       "send getD1,", "read",        "clear",
                                            "send getD2,", "read"};
    EXPECT_EQ(controller.calls, calls);
    EXPECT_EQ(clock.elapsedMs(), 400);
}

TEST_F(DiagnosticFixture, WordsInWords) {
    const auto allFalseMode =
        lines({"Invert Motor 1 Direction: False", "Invert Motor 2 Direction: False",
               "Emulate TB40: False", "Invert Motor 3 Direction: False",
               "Invert Motor 4 Direction: False", "Set KDX as Master: False",
               "Run Program 4 on Startup: False"});
    const struct {
        Method method;
        const char* query;
        const char* reply;
        std::string text;
    } cases[] = {
        {&ClsKdxDiagnostic::GetOperatingMode, "getDM,", "6\r",
         "Actual value = 6\r\r\n" +
             lines({"Invert Motor 1 Direction: True", "Invert Motor 2 Direction: True",
                    "Emulate TB40: False", "Invert Motor 3 Direction: False",
                    "Invert Motor 4 Direction: False", "Set KDX as Master: False",
                    "Run Program 4 on Startup: False"})},
        {&ClsKdxDiagnostic::GetOperatingMode, "getDM,", "", "Actual value = \r\n" + allFalseMode},
        {&ClsKdxDiagnostic::GetMultifunctionUserInputs, "getI,", "248\r",
         "Actual value = 248\r\n" +
             lines({"Run button enabled: False", "Stop button (Input4) enabled: False",
                    "Input 3 Interrupt User Waits and Jump to Program 3: False",
                    "Low valid time for Input 1 and Run button = 100 Microseconds",
                    "Stop (Input4) = Hard stop",
                    "Jump to Program 4 after Stop input (Input 4): True",
                    "Program # Select via Inputs 2 and 3 (Thumbwheel switch): True",
                    "Capture Motor Position on Input 4 trigger: True"})},
    };
    for (const auto& c : cases) {
        SetUp();
        controller.replies = {{c.query, c.reply}};
        EXPECT_EQ(c.method(diagnostic, nullptr), c.text) << c.reply;
        EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", c.query}));
    }
}

TEST_F(DiagnosticFixture, ByteMasksInWords) {
    const struct {
        Method method;
        const char* query;
        const char* reply;
        std::string text;
    } cases[] = {
        {&ClsKdxDiagnostic::GetUserInputStates, "~,", "\xFE",
         "Actual value = 254\r\n" +
             lines({"Jog 1 - On: True", "Jog 1 + On: False", "Jog 2 - On: False",
                    "Jog 2 + On: False", "Input 1 On: False", "Input 2 On: False",
                    "Input 3 On: False", "Input 4 On: False"})},
        {&ClsKdxDiagnostic::GetUserInputStates, "~,", "\x7F",
         "Actual value = 127\r\n" +
             lines({"Jog 1 - On: False", "Jog 1 + On: False", "Jog 2 - On: False",
                    "Jog 2 + On: False", "Input 1 On: False", "Input 2 On: False",
                    "Input 3 On: False", "Input 4 On: True"})},
        {&ClsKdxDiagnostic::GetUserInputStates, "~,", "", ClsKdxDiagnostic::NoInputReply},
        {&ClsKdxDiagnostic::GetLimitStates, "?,", "", ""},
    };
    for (const auto& c : cases) {
        SetUp();
        controller.replies = {{c.query, c.reply}};
        TextBox box;
        box.text = "stale";
        EXPECT_EQ(c.method(diagnostic, &box), c.text) << c.query << c.reply;
        EXPECT_EQ(box.text, c.text);
        EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", c.query}));
    }
}

TEST_F(DiagnosticFixture, UserOutputsNeedFirmwareOnePointTwoTwo) {
    const auto allOff = lines({"Actual value = 0", "Output 1 On: False", "Output 2 On: False",
                               "Output 3 On: False", "Output 4 On: False", "Bit 5 - Not Used",
                               "Bit 6 - Not Used", "Bit 7 - Not Used", "Bit 8 - Not Used"});
    const struct {
        const char* version;
        const char* outputs;
        std::string text;
        bool asksOutputs;
    } cases[] = {
        {"1.21\r", "\x0F",
         "Version 1.22 or higher is needed for this option. Your Version is: 1.21\r\n", false},
        {"", "\x0F", "Version 1.22 or higher is needed for this option. Your Version is: \r\n",
         false},
        {"1.22\r", "", allOff, true},
        {"1.22\r", "\r", allOff, true},
        {"1.3\r", "\xF5\r",
         lines({"Actual value = 245", "Output 1 On: True", "Output 2 On: False",
                "Output 3 On: True", "Output 4 On: False", "Bit 5 - Not Used", "Bit 6 - Not Used",
                "Bit 7 - Not Used", "Bit 8 - Not Used"}),
         true},
    };
    for (const auto& c : cases) {
        SetUp();
        controller.replies = {{"getD0,", c.version}, {"$,", c.outputs}};
        TextBox box;
        EXPECT_EQ(diagnostic.GetUserOutputStates(&box), c.text) << c.version;
        EXPECT_EQ(box.text, c.text);
        std::vector<std::string> expected = {"K,Q,F", "getD0,"};
        if (c.asksOutputs) {
            expected.push_back("$,");
        }
        EXPECT_EQ(sent(), expected) << c.version;
    }
}

TEST_F(DiagnosticFixture, OverTravelAndBacklashReadTheSameReply) {
    const struct {
        const char* reply;
        const char* overTravel;
        const char* backlash;
    } cases[] = {
        {"0\r", "OverTravel = Disabled\r\n", "BackLash = Disabled\r\n"},
        {"", "OverTravel = Disabled\r\n", "BackLash = Disabled\r\n"},
        {"1\r", "OverTravel = Send capital letter O to host when hit Limit\r\n",
         "BackLash = 20 steps\r\n"},
        {"2\r", "OverTravel = Stop program if hit Limit\r\n", "Backlash = 0 steps\r\n"},
        {"3\r", "OverTravel = Send O to host and Stop program when hit Limit\r\n",
         "Backlash = 0 steps\r\n"},
        {"7\r", "7", "Backlash = 0 steps\r\n"},
        {"255\r", "255", "Backlash = 0 steps\r\n"},
        {"300\r", "300", "300"},
        {"-1\r", "-1", "-1"},
    };
    for (const auto& c : cases) {
        SetUp();
        controller.replies = {{"O,", c.reply}};
        EXPECT_EQ(diagnostic.GetOverTravel(), c.overTravel) << c.reply;
        EXPECT_EQ(diagnostic.GetBacklash(), c.backlash) << c.reply;
        EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "O,", "K,Q,F", "O,"}));
    }
}

TEST_F(DiagnosticFixture, AnalogSettingOutOfRangeHandsBackThePreviousText) {
    const struct {
        const char* setting;
        const char* text;
    } steps[] = {
        {"5", "Setting:  5 = 5 to 1250 sps\r\n"},
        {"25", "Setting:  5 = 5 to 1250 sps\r\n"},
        {"0\r\n", "Setting:  0 = Disabled\r\n"},
        {"2.5", "Setting:  0 = Disabled\r\n"},
        {"-1", "Setting:  0 = Disabled\r\n"},
        {"1", "Setting:  1 = 1 to 250 sps\r\n"},
        {"24\r\n", "Setting:  24 = 24 to 6000 sps\r\n"},
    };
    for (const auto& s : steps) {
        EXPECT_EQ(diagnostic.SortAnalogJoystickSetting(s.setting), s.text) << s.setting;
    }
    EXPECT_TRUE(controller.calls.empty()) << "asks the controller nothing";
    controller.replies = {{"getDA,", "20\r"}};
    diagnostic.GetDeadBand();
    EXPECT_EQ(diagnostic.SortAnalogJoystickSetting("25"), "Deadband: 20\r\n");
}

TEST_F(DiagnosticFixture, MotorCountQuery) {
    controller.replies = {{"getM3M,", "getM3M,2000\r"}};
    EXPECT_EQ(diagnostic.GetNumberOfControls(), 2);
    EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "getM3M,"}));
}

TEST_F(DiagnosticFixture, AxisSettingsOnFourMotors) {
    FillController(true);
    std::array<TextBox, 4> boxes;
    const auto joined = diagnostic.GetAxisSettings({&boxes[0], &boxes[1], &boxes[2], &boxes[3]});
    EXPECT_EQ(joined, "Setting for Motor1: 1000;Setting for Limit1: 1;Setting for Motor2: 2000;"
                      "Setting for Limit2: 2;Setting for Motor3: 3000;Setting for Limit3: 3;"
                      "Setting for Motor4: 4000;Setting for Limit4: 4");
    EXPECT_EQ(boxes[2].text, "Setting for Motor3: 3000\r\nSetting for Limit3: 3\r\n");
    // Prologue, the count's own prologue and query, then a pause before and after each send.
    const std::vector<std::pair<std::string, long>> sends = {
        {"K,Q,F", 0},      {"K,Q,F", 100},    {"getM3M,", 200},  {"getM1M,", 400},
        {"getL1M,", 600},  {"getM2M,", 800},  {"getL2M,", 1000}, {"getM3M,", 1200},
        {"getL3M,", 1400}, {"getM4M,", 1600}, {"getL4M,", 1800}};
    EXPECT_EQ(controller.sends, sends);
    EXPECT_EQ(clock.elapsedMs(), 1900);
    EXPECT_EQ(pointer.changes, (std::vector<bool>{true, false})) << "once, around the whole";
}

TEST_F(DiagnosticFixture, AxisSettingsOnTwoMotorsCleanEchoesAndEmptyAxesThreeAndFour) {
    controller.replies = {{"getM3M,", "\xCB"
                                      "B"},
                          {"getM1M,", "getM1M,1000\r\n"},
                          {"getL1M,", "getM1M,1,\r"},
                          {"getM2M,", "2,000\r"},
                          {"getL2M,", "2,\r"}};
    std::array<TextBox, 4> boxes;
    for (auto& b : boxes) {
        b.text = "stale";
    }
    const auto joined = diagnostic.GetAxisSettings({&boxes[0], &boxes[1], &boxes[2], &boxes[3]});
    EXPECT_EQ(joined, "Setting for Motor1: 1000;Setting for Limit1: 1;Setting for Motor2: 2000;"
                      "Setting for Limit2: 2,");
    EXPECT_EQ(boxes[1].text, "Setting for Motor2: 2000\r\nSetting for Limit2: 2,\r\n");
    EXPECT_EQ(boxes[2].text, "");
    EXPECT_EQ(boxes[3].text, "");
    EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "K,Q,F", "getM3M,", "K,Q,F", "getM1M,",
                                                "getL1M,", "getM2M,", "getL2M,"}));
}

TEST_F(DiagnosticFixture, PerAxisMethodsAskNothingMoreWhenTheCountIsUnknown) {
    const std::function<std::string(const AxisTargets&)> methods[] = {
        [&](const AxisTargets& t) { return diagnostic.GetAxisSettings(t); },
        [&](const AxisTargets& t) { return diagnostic.GetJoystickAnalogSettings(t); },
        [&](const AxisTargets& t) { return diagnostic.GetJoystickDigitalSettings(t); },
        [&](const AxisTargets& t) { return diagnostic.GetPulseEveryNumSteps(t); },
    };
    for (const auto& method : methods) {
        SetUp();
        std::array<TextBox, 4> boxes;
        for (auto& b : boxes) {
            b.text = "as before";
        }
        EXPECT_EQ(method({&boxes[0], &boxes[1], &boxes[2], &boxes[3]}), "");
        EXPECT_EQ(boxes[0].text, "as before");
        EXPECT_EQ(boxes[3].text, "as before");
        EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "K,Q,F", "getM3M,"}));
    }
}

TEST_F(DiagnosticFixture, AnalogJoystickSettingsShowTheSpans) {
    FillController(false);
    controller.replies["getjA1M,"] = "25\r"; // nothing before it: an empty setting text
    controller.replies["getJA1M,"] = "5\r";
    controller.replies["getjA2M,"] = "0\r";
    controller.replies["getJA2M,"] = "99\r"; // shows the primary's text again
    std::array<TextBox, 4> boxes;
    boxes[3].text = "stale";
    const auto joined =
        diagnostic.GetJoystickAnalogSettings({&boxes[0], &boxes[1], &boxes[2], &boxes[3]});
    EXPECT_EQ(boxes[0].text, "Primary Axis 1 Secondary Axis 1 Setting:  5 = 5 to 1250 sps\r\n");
    EXPECT_EQ(
        boxes[1].text,
        "Primary Axis 2 Setting:  0 = Disabled\r\nSecondary Axis 2 Setting:  0 = Disabled\r\n");
    EXPECT_EQ(boxes[3].text, "");
    EXPECT_EQ(joined, "Primary Axis 1 ;Secondary Axis 1 Setting:  5 = 5 to 1250 sps;"
                      "Primary Axis 2 Setting:  0 = Disabled;Secondary Axis 2 Setting:  0 = "
                      "Disabled");
    EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "K,Q,F", "getM3M,", "getjA1M,", "getJA1M,",
                                                "getjA2M,", "getJA2M,"}))
        << "no second prologue outside the axis settings";
}

TEST_F(DiagnosticFixture, DigitalJoystickAndPulseSettings) {
    FillController(true);
    std::array<TextBox, 4> boxes;
    const AxisTargets targets = {&boxes[0], &boxes[1], &boxes[2], &boxes[3]};
    EXPECT_EQ(diagnostic.GetJoystickDigitalSettings(targets),
              "Primary Setting: 100;Secondary Setting: 50;Primary Setting: 200;Secondary "
              "Setting: 100;Primary Setting: 300;Secondary Setting: 150;Primary Setting: "
              "400;Secondary Setting: 200");
    EXPECT_EQ(boxes[3].text, "Primary Setting: 400\r\nSecondary Setting: 200\r\n");

    SetUp();
    FillController(true);
    EXPECT_EQ(diagnostic.GetPulseEveryNumSteps(targets),
              "Pulse N Steps Setting: 10;Pulse N Steps Setting: 20;Pulse N Steps Setting: "
              "30;Pulse N Steps Setting: 40");
    EXPECT_EQ(boxes[1].text, "Pulse N Steps Setting: 20\r\n");
    const std::vector<std::pair<std::string, long>> sends = {
        {"K,Q,F", 0},     {"K,Q,F", 100},   {"getM3M,", 200}, {"getP1M,", 300},
        {"getP2M,", 500}, {"getP3M,", 700}, {"getP4M,", 900}};
    EXPECT_EQ(controller.sends, sends) << "0.2 s after each pulse setting read";
    EXPECT_EQ(clock.elapsedMs(), 1100);
}

TEST_F(DiagnosticFixture, ProgramListingThroughTheFormatter) {
    std::string seen;
    int flag = -1;
    ClsKdxDiagnostic withSpy(driver, delay, [&](const std::string& text, int f) {
        seen = text;
        flag = f;
        return FakeFormatter(text, f);
    });
    controller.replies = {{"PM2,lst,", "C,S1M20,R"}};
    TextBox box;
    EXPECT_EQ(withSpy.GetProgram(2, &box), "C,;MC\r\nS1M20,\t\t;MS1M20\r\nR,\t\t;MR\r\n");
    EXPECT_EQ(box.text, "C,;MC\r\nS1M20,\t\t;MS1M20\r\nR,\t\t;MR\r\n");
    EXPECT_EQ(seen, "C,S1M20,R");
    EXPECT_EQ(flag, 1) << "comments on";
    EXPECT_EQ(sent(), (std::vector<std::string>{"K,Q,F", "PM2,lst,"}));
    EXPECT_EQ(controller.sends[1].second, 100);
    EXPECT_EQ(clock.elapsedMs(), 1100) << "a listing waits a whole second";

    ClsKdxDiagnostic noFormatter(driver, delay);
    EXPECT_EQ(noFormatter.GetProgram(2), "C,S1M20,R");
}
