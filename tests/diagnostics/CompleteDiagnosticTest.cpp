#include "FakeController.h"
#include "support/TempFolder.h"

#include "core/ClsReadWriteFile.h"
#include "diagnostics/CompleteDiagnostic.h"

#include <algorithm>

using namespace korval;
using namespace korval::testing;

namespace {

const char* const Head = "******************** Diagnostic Results ********************\r\n\r\n";

// The report of the controller that FillController sets up; axes 3 and 4 only with four motors.
std::string expectedReport(bool four) {
    std::string r = Head;
    r += "********** Processor **********\r\n"
         "Version: 1.22\r\nDate: 03/14/05\r\nMode: Master\r\n";
    r += "********** Operating Mode **********\r\n"
         "Actual value = 129\r\r\n" +
         lines({"Invert Motor 1 Direction: False", "Invert Motor 2 Direction: False",
                "Emulate TB40: False", "Invert Motor 3 Direction: False",
                "Invert Motor 4 Direction: False", "Set KDX as Master: False",
                "Run Program 4 on Startup: True", ""});
    r += "********** Programs **********\r\n"
         "Current Program: 0\r\nCurrent Program Associate: 4\r\n"
         "C,;MC\r\nS1M0,\t\t;MS1M0\r\nR,\t\t;MR\r\n\r\n"
         "C,;MC\r\nS1M1,\t\t;MS1M1\r\nR,\t\t;MR\r\n\r\n"
         "C,;MC\r\nS1M2,\t\t;MS1M2\r\nR,\t\t;MR\r\n\r\n"
         "C,;MC\r\nS1M3,\t\t;MS1M3\r\nR,\t\t;MR\r\n\r\n"
         "\r\n";
    r += "********** Axis **********\r\n"
         "Setting for Motor1: 1000\r\nSetting for Limit1: 1\r\n\r\n"
         "Setting for Motor2: 2000\r\nSetting for Limit2: 2\r\n\r\n";
    r += four ? "Setting for Motor3: 3000\r\nSetting for Limit3: 3\r\n\r\n"
                "Setting for Motor4: 4000\r\nSetting for Limit4: 4\r\n\r\n"
              : "\r\n\r\n";
    r += "********** Analog Joystick **********\r\n"
         "Deadband: 20\r\n"
         "Primary Axis 1 Setting:  1 = 1 to 250 sps\r\n"
         "Secondary Axis 1 Setting:  21 = 21 to 5250 sps\r\n"
         "Primary Axis 2 Setting:  2 = 2 to 500 sps\r\n"
         "Secondary Axis 2 Setting:  22 = 22 to 5500 sps\r\n";
    if (four) {
        r += "Primary Axis 3 Setting:  3 = 3 to 750 sps\r\n"
             "Secondary Axis 3 Setting:  23 = 23 to 5750 sps\r\n"
             "Primary Axis 4 Setting:  4 = 4 to 1000 sps\r\n"
             "Secondary Axis 4 Setting:  24 = 24 to 6000 sps\r\n";
    }
    r += "\r\n";
    r += "********** Digital Joystick **********\r\n"
         "Primary Setting: 100\r\nSecondary Setting: 50\r\n"
         "Primary Setting: 200\r\nSecondary Setting: 100\r\n";
    if (four) {
        r += "Primary Setting: 300\r\nSecondary Setting: 150\r\n"
             "Primary Setting: 400\r\nSecondary Setting: 200\r\n";
    }
    r += "\r\n";
    r += "********** Outputs **********\r\n"
         "Pulse Width: 10\r\n"
         "Pulse N Steps Setting: 10\r\nPulse N Steps Setting: 20\r\n";
    if (four) {
        r += "Pulse N Steps Setting: 30\r\nPulse N Steps Setting: 40\r\n";
    }
    r += "\r\n";
    r += "********** Multifunction Inputs **********\r\n"
         "Actual value = 7\r\n" +
         lines({"Run button enabled: True", "Stop button (Input4) enabled: True",
                "Input 3 Interrupt User Waits and Jump to Program 3: True",
                "Low valid time for Input 1 and Run button = 1 Millisecond",
                "Stop (Input4) = Decel to stop",
                "Jump to Program 4 after Stop input (Input 4): False",
                "Program # Select via Inputs 2 and 3 (Thumbwheel switch): False",
                "Capture Motor Position on Input 4 trigger: False", ""});
    r += "********** Analog Input **********\r\n"
         "Analog Input Value: 512\r\n\r\n";
    r += "********** User Outputs **********\r\n" +
         lines({"Actual value = 5", "Output 1 On: True", "Output 2 On: False", "Output 3 On: True",
                "Output 4 On: False", "Bit 5 - Not Used", "Bit 6 - Not Used", "Bit 7 - Not Used",
                "Bit 8 - Not Used", ""});
    r += "********** Overtravel and Backlash **********\r\n"
         "OverTravel = Send capital letter O to host when hit Limit\r\n"
         "BackLash = 20 steps\r\n\r\n";
    r += "********** User Inputs **********\r\n" +
         lines({"Actual value = 255", "Jog 1 - On: False", "Jog 1 + On: False", "Jog 2 - On: False",
                "Jog 2 + On: False", "Input 1 On: False", "Input 2 On: False", "Input 3 On: False",
                "Input 4 On: False", ""});
    r += "********** Limit States **********\r\n" +
         lines({"Actual value = 252", "Limit 1 - Activated: True", "Limit 1 + Activated: True",
                "Limit 2 - Activated: False", "Limit 2 + Activated: False",
                "Limit 3 - Activated: False", "Limit 3 + Activated: False",
                "Limit 4 - Activated: False", "Limit 4 + Activated: False"});
    return r;
}

const char* const Progress =
    "Scanning Processor\r\nProcessor Complete\r\n"
    "Scanning Operating Mode\r\nOperating Mode Complete\r\n"
    "Scanning KDX Current Program\r\nKDX Current Program Complete\r\n"
    "Scanning KDX Current Program Associate\r\nKDX Current Program Associate Complete\r\n"
    "Scanning Program 0\r\nProgram 0 Complete\r\n"
    "Scanning Program 1\r\nProgram 1 Complete\r\n"
    "Scanning Program 2\r\nProgram 2 Complete\r\n"
    "Scanning Program 3\r\nProgram 3 Complete\r\n"
    "Scanning Program 4\r\nProgram 4 Complete\r\n"
    "Scanning Axis\r\nAxis Complete\r\n"
    "Scanning Analog Joystick Deadband\r\nAnalog Joystick Deadband Complete\r\n"
    "Scanning Analog Joystick\r\nAnalog Joystick Complete\r\n"
    "Scanning Digital Joystick\r\nDigital Joystick Complete\r\n"
    "Scanning Output Pulse Width\r\nOutput Pulse Width Complete\r\n"
    "Scanning Output Pulse\r\nOutput Pulse Complete\r\n"
    "Scanning Multifunction User Inputs\r\nMultifunction User Inputs Complete\r\n"
    "Scanning Analog Input\r\nAnalog Input Complete\r\n"
    "Scanning User Outputs\r\nUser Outputs Complete\r\n"
    "Scanning Overtravel\r\nOvertravel Complete\r\n"
    "Scanning Backlash\r\nBacklash Complete\r\n"
    "Scanning User Inputs\r\nUser Inputs Complete\r\n"
    "Scanning Limit States\r\nLimit States Complete\r\n"
    "Scan Complete\r\nGenerating Report";

} // namespace

TEST_F(DiagnosticFixture, CompleteDiagnosticOfAFourMotorController) {
    FillController(true);
    DiagnosticBoxes boxes;
    std::string progress;
    PointerSpy scanPointer;
    const auto result = RunCompleteDiagnostic(
        diagnostic, boxes,
        {[&](const std::string& added) { progress += added; }, &scanPointer, {}, {}});
    EXPECT_EQ(result.report, expectedReport(true));
    EXPECT_TRUE(result.Complete());
    EXPECT_EQ(progress, Progress);
    EXPECT_EQ(scanPointer.changes, (std::vector<bool>{true, false}));
    // The sum of the fixed delays: every query's own, 0.1 s behind each step, 0.2 s at the end.
    EXPECT_EQ(clock.elapsedMs(), 16000);
    const auto s = sent();
    EXPECT_EQ(std::count(s.begin(), s.end(), "PM\r"), 0) << "no restore unless asked";
    EXPECT_EQ(s.back(), "?,");
}

// The quick mode takes a reply as whole at its end mark. A controller that goes on after it (a
// line feed behind the CR) is caught when those bytes come before the next query is asked: the
// scan asks again with the fixed waits, and the report is the one the fixed waits give.
TEST_F(DiagnosticFixture, AReplyThatRunsOnTurnsTheScanToTheFixedWaits) {
    FillController(true);
    controller.late["getDM,"] = {"\n", 25};
    DiagnosticBoxes boxes;
    const auto exact = RunCompleteDiagnostic(diagnostic, boxes);
    EXPECT_NE(exact.report.find("Actual value = 129\r\n\r\n"), std::string::npos)
        << "the fixed wait reads the line feed too";

    controller.due.clear();
    ReplyTiming quickTiming;
    ClsKdxDiagnostic quick(driver, delay, FakeFormatter, nullptr, &quickTiming);
    const auto result = RunCompleteDiagnostic(quick, boxes);
    EXPECT_EQ(result.exactFrom, "Operating Mode");
    EXPECT_EQ(result.report, exact.report);
    EXPECT_EQ(RunCompleteDiagnostic(quick, boxes).exactFrom, "Operating Mode")
        << "each scan starts quick again";
    controller.late.clear();
    EXPECT_EQ(RunCompleteDiagnostic(quick, boxes).exactFrom, "");
    controller.pending += "^"; // a program's end, long after the last scan
    delay.TimeDelay(1.0);
    EXPECT_EQ(RunCompleteDiagnostic(quick, boxes).exactFrom, "")
        << "what comes between two scans is no reply running on";
}

TEST_F(DiagnosticFixture, CompleteDiagnosticOfATwoMotorControllerStillListsFourAxes) {
    FillController(false);
    DiagnosticBoxes boxes;
    boxes.axis[2].text = "left from an earlier scan";
    boxes.outputPulse[3].text = "left from an earlier scan";
    EXPECT_EQ(RunCompleteDiagnostic(diagnostic, boxes).report, expectedReport(false));
    EXPECT_EQ(boxes.axis[2].text, "");
    EXPECT_EQ(boxes.outputPulse[3].text, "");
}

TEST_F(DiagnosticFixture, ASilentControllerGivesEveryBannerAndEmptyBodies) {
    DiagnosticBoxes boxes;
    boxes.axis[0].text = "left from an earlier scan";
    const auto result = RunCompleteDiagnostic(diagnostic, boxes);
    const auto& report = result.report;
    EXPECT_TRUE(result.Complete()) << "silence is no failure of the line";
    EXPECT_EQ(result.answered, 0);
    EXPECT_EQ(boxes.axis[0].text, "") << "emptied by the step, left so by the count of 0";
    const char* banners[] = {"Processor",    "Operating Mode",          "Programs",
                             "Axis",         "Analog Joystick",         "Digital Joystick",
                             "Outputs",      "Multifunction Inputs",    "Analog Input",
                             "User Outputs", "Overtravel and Backlash", "User Inputs",
                             "Limit States"};
    std::size_t at = 0;
    for (const auto* name : banners) {
        const auto found = report.find(std::string("********** ") + name + " **********\r\n", at);
        ASSERT_NE(found, std::string::npos) << name;
        at = found + 1;
    }
    EXPECT_EQ(report.substr(0, std::string(Head).size()), Head);
    EXPECT_TRUE(report.ends_with(std::string("********** User Inputs **********\r\n") +
                                 ClsKdxDiagnostic::NoInputReply + "\r\n" +
                                 "********** Limit States **********\r\n"))
        << "an empty limit reply leaves the last section with its banner only";
}

// A port that fails mid-scan ends the scan at once, and the report says so; a stop between
// steps does the same. Neither turns the empty replies that follow into facts.
TEST_F(DiagnosticFixture, AScanThatEndsEarlySaysWhereAndMarksItsReport) {
    const struct {
        long portLostAtMs;
        int stopBeforeStep;
        const char* reached;
        const char* note;
    } cases[] = {
        {3000, -1, "Program 1", "the serial line failed during \"Scanning Program 1\"."},
        {-1, 9, "Axis", "the scan was stopped during \"Scanning Axis\"."},
    };
    for (const auto& c : cases) {
        SetUp();
        FillController(true);
        controller.portLostAtMs = c.portLostAtMs;
        DiagnosticBoxes boxes;
        int steps = 0;
        std::string progress;
        const auto result =
            RunCompleteDiagnostic(diagnostic, boxes,
                                  {[&](const std::string& added) { progress += added; },
                                   nullptr,
                                   [&] { return steps++ == c.stopBeforeStep; },
                                   {}});
        EXPECT_FALSE(result.Complete()) << c.reached;
        EXPECT_EQ(result.reachedStep, c.reached);
        EXPECT_TRUE(
            result.report.ends_with(std::string("\r\n\r\nReport incomplete: ") + c.note + "\r\n"))
            << result.report.substr(result.report.size() - 120);
        EXPECT_EQ(progress.find("Scan Complete"), std::string::npos) << c.reached;
        EXPECT_EQ(boxes.limitStates.text, "") << "nothing read after the end";
    }
}

// Named as every saved script is (one ".txt", at the end); an empty name saves nothing.
TEST(DiagnosticReportFile, NamesEndInOneTxt) {
    EXPECT_EQ(DiagnosticReportFileName("KDX Diagnostic"), "KDX Diagnostic.txt");
    EXPECT_EQ(DiagnosticReportFileName(".txt"), ".txt");
    EXPECT_EQ(DiagnosticReportFileName(""), std::nullopt) << "nothing is saved";
}

TEST(DiagnosticReportFile, SavedBytesAreTheReportsBytes) {
    TempFolder folder;
    const std::string report = std::string(Head) + "\xCB"
                                                   "B\r\nlast line";
    const auto path = folder.file(*DiagnosticReportFileName("bench 3.txt"));
    ASSERT_EQ(SaveDiagnosticReport(path, report), "");
    EXPECT_EQ(readWholeFile(path), report);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"bench 3.txt"});
    EXPECT_NE(SaveDiagnosticReport(folder.file("missing/r.txt"), report).find("missing/r.txt"),
              std::string::npos)
        << "says which file could not be written";
    EXPECT_EQ(folder.names(), std::vector<std::string>{"bench 3.txt"}) << "nothing half written";
}

TEST_F(DiagnosticFixture, ProgramsPanelReturnsToTheProgramThatWasCurrent) {
    FillController(true);
    controller.replies["PM\r"] = "3\r";
    TextBox current;
    TextBox associate;
    std::array<TextBox, 5> programs;
    RefreshProgramsPanel(diagnostic,
                         {&current,
                          &associate,
                          {&programs[0], &programs[1], &programs[2], &programs[3], &programs[4]}});
    EXPECT_EQ(current.text, "Current Program: 0\r\n");
    EXPECT_EQ(associate.text, "Current Program Associate: 4\r\n");
    EXPECT_EQ(programs[1].text, "C,;MC\r\nS1M1,\t\t;MS1M1\r\nR,\t\t;MR\r\n");
    EXPECT_EQ(sent(),
              (std::vector<std::string>{"PM\r", "K,Q,F", "PM,", "K,Q,F", "PMA,", "K,Q,F",
                                        "PM0,lst,", "K,Q,F", "PM1,lst,", "K,Q,F", "PM2,lst,",
                                        "K,Q,F", "PM3,lst,", "K,Q,F", "PM4,lst,", ",PM3\r,"}));
    EXPECT_EQ(controller.calls.front(), "clear");
    EXPECT_EQ(controller.calls[2], "read+clear") << "read 0.1 s after the send, then cleared";
    EXPECT_EQ(controller.sends[1].second, 100);
}

TEST_F(DiagnosticFixture, AStoppedScanCountsItsStepsAndEndsBetweenTwo) {
    FillController(true);
    DiagnosticBoxes boxes;
    std::string progress;
    std::vector<int> done;
    ScanOptions options;
    options.progress = [&](const std::string& added) { progress += added; };
    options.stepDone = [&](int d, int count) {
        EXPECT_EQ(count, 22);
        done.push_back(d);
    };
    options.stopRequested = [&] { return done.size() == 6; }; // among the listings
    const auto result = RunCompleteDiagnostic(diagnostic, boxes, options);
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(progress.ends_with("Program 1 Complete\r\nScan Stopped\r\n")) << progress;
    const auto s = sent();
    EXPECT_EQ(std::count(s.begin(), s.end(), "PM2,lst,"), 0) << "nothing is asked after the stop";
}
