// korval-cli autoreverse: the exact program for the settings named, the window's messages on
// stderr, and the preview files.
#include "CliProcess.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace korval::test;

namespace {

// "F, PM-0" as the controller gets it: CR after each command.
std::string lines(const std::string& commands, const char* end = "\r") {
    std::string out;
    std::size_t from = 0;
    while (from < commands.size()) {
        const auto blank = commands.find(' ', from);
        const auto to = blank == std::string::npos ? commands.size() : blank;
        out += commands.substr(from, to - from) + end;
        from = to + 1;
    }
    return out;
}

} // namespace

TEST(AutoReverseCli, PrintsTheProgramForTheSettingsGiven) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const struct {
        const char* args;
        std::string program;
        const char* messages;
    } cases[] = {
        {"", lines("F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, setDM1, R"), ""},
        {"--store CurrentMotor=3 CmbHomeStyle=2 CmbHomeInstance=2 TxtHomePosition=250 "
         "TxtMovePosition=-900 CmbRepeat=1",
         lines("F, PM-4, S3M500, I3M0, IA3M-0, IA3M-250, PM-0, S3M2000, I3M-900, S3M2000, "
               "IA3M250, L0, setDM129, rsm"),
         ""},
        {"--test CmbHomeStyle=1 TxtHomeSpeed=2500 CmbMovePosition=0 TxtMovePosition=-401 "
         "CmbReturnPosition=4 CmbVelocityStyleReturn=8 TxtRepeat=3",
         lines("F, PM-0, S1M2000, I1M-0, IA1M-0, IA1M400, LM0, S1M2000, I1M-400, U5, S1M-12, "
               "IA1M400, LA3, setDM1, R"),
         "Error: Homing Speed: Speed Too High\n"
         "Error: Moving Direction: Invalid Distance\n\nMaximum Travel is -400 Steps\n"},
        {"CmbHomeStyle=2 CmbHomeInstance=2 CmbHomeStyle=0 CmbHomeIO=1 TxtHomePause=1000",
         lines("F, PM-4, LM0, P10, S1M2000, I1M400, S1M2000, IA1M400, setDM129, R"), ""},
    };
    for (const auto& c : cases) {
        const auto r = run(cli("autoreverse " + std::string(c.args)) + " 2>" + errors);
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, c.program) << c.args;
        EXPECT_EQ(slurp(errors), c.messages) << c.args;
    }
}

TEST(AutoReverseCli, TheFileFormIsTheWorkedExample) {
    const auto r = run(cli("autoreverse --file CmbHomeStyle=1 TxtMovePosition=1000 CmbHomeIO=1 "
                           "TxtHomePause=1.5 TxtRepeat=5 2>/dev/null"));
    EXPECT_EQ(r.out, "F,\t\t;KDX Online with Echo Off\r\n"
                     "PM-0,\t\t;The commands below belong to program 0\r\n"
                     "S1M500,\t\t;Motor 1 speed 500 steps/sec\r\n"
                     "I1M-0,\t\t;Motor 1 run to the - limit\r\n"
                     "IA1M-0,\t\t;Motor 1 make the present position absolute zero\r\n"
                     "IA1M400,\t\t;Motor 1 move to absolute position 400 steps\r\n"
                     "LM0,\t\t;The repeated part begins here\r\n"
                     "P15,\t\t;Pause 1.5 seconds\r\n"
                     "S1M2000,\t\t;Motor 1 speed 2000 steps/sec\r\n"
                     "I1M1000,\t\t;Motor 1 index +1000 steps\r\n"
                     "S1M2000,\t\t;Motor 1 speed 2000 steps/sec\r\n"
                     "IA1M400,\t\t;Motor 1 move to absolute position 400 steps\r\n"
                     "LA5,\t\t;Repeat 5 times\r\n"
                     "setDM1,\t\t;Set the operating mode word to 1\r\n"
                     "R\t\t;Run the current program\r\n");
}

TEST(AutoReverseCli, UsageErrorsChangeNothing) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const struct {
        const char* args;
        const char* message;
    } cases[] = {
        {"Colour=red", "korval-cli: no setting is named \"Colour\"\n"},
        {"CmbHomeStyle=1 CmbRepeat=2", "korval-cli: CmbRepeat takes a number from 0 to 1, not "
                                       "\"2\"\n"},
        {"CurrentMotor=5", "korval-cli: CurrentMotor takes a number from 1 to 4, not \"5\"\n"},
        {"TxtRepeat", "korval-cli: \"TxtRepeat\" is not NAME=VALUE\n"},
        {"--test --file", "korval-cli: autoreverse takes one of --test, --store, --file\n"},
        {"--preview out.txt", "korval-cli: --preview writes a .csv or a .png file\n"},
        {"--travel", "korval-cli: --travel needs a value\n"},
        {"--fast", "korval-cli: autoreverse does not know --fast\n"},
    };
    for (const auto& c : cases) {
        const auto r =
            run(cli("--sim autoreverse --store " + std::string(c.args)) + " 2>" + errors);
        EXPECT_EQ(r.status, 2) << c.args;
        EXPECT_EQ(r.out, "") << c.args;
        EXPECT_EQ(slurp(errors), c.message) << c.args;
    }
}

TEST(AutoReverseCli, ThePreviewAsATableAndAPicture) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const auto r = run(cli("autoreverse --preview " + dir.file("motion.csv") +
                           " --travel 1000 CmbHomeStyle=1 CmbHomeIO=1 TxtRepeat=4 2>" + errors));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, lines("F, PM-0, S1M500, I1M-0, IA1M-0, IA1M400, LM0, P10, S1M2000, I1M400, "
                           "S1M2000, IA1M400, LA4, setDM1, R"))
        << "the program is printed all the same";
    const auto csv = slurp(dir.file("motion.csv"));
    EXPECT_TRUE(csv.starts_with("seconds,motor,position,event\n0.000,1,0,\n")) << csv;
    EXPECT_NE(csv.find(",1,-1000,Limit switch\n"), std::string::npos) << "the travel given";
    const auto said = slurp(errors);
    // A second's pause and 400 steps out and back at 2000 a second; the seek from the middle
    // of the travel at 500 a second, and the 400 steps back out, come before the four cycles.
    EXPECT_EQ(said, "Preview: Cycle time: 1.50 s\nPreview: Total time of 4 cycles: 8.82 s\n");

    const auto picture =
        run(cli("autoreverse --preview " + dir.file("motion.png") + " CmbRepeat=1 2>" + errors));
    EXPECT_EQ(picture.status, 0);
    EXPECT_EQ(slurp(dir.file("motion.png")).substr(1, 3), "PNG");
    EXPECT_NE(slurp(errors).find("Preview: Runs without end: only the Stop button ends it"),
              std::string::npos);

    const auto nowhere = run(cli("autoreverse --preview /nonexistent/folder/m.csv 2>" + errors));
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(slurp(errors), "korval-cli: cannot write the preview to /nonexistent/folder/m.csv\n");
}

// With a controller the test runs the program: a start from the current location is made zero
// there first, and the run ends where it began.
TEST(AutoReverseCli, WithTheBuiltInControllerTheTestRuns) {
    const auto r = run(cli("--sim autoreverse --test TxtMovePosition=300 2>&1"));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, lines("F, PM-0, LM0, S1M2000, I1M300, S1M2000, IA1M0, setDM1, R"));
}
