#include "AutoReverseFixture.h"

using namespace korval;
using namespace korval::testing;

namespace {

using Edit = std::function<void(AutoReverseSettings&)>;

struct ProgramCase {
    const char* what;
    Edit edit;
    const char* program; // commands as the controller gets them, blank-separated
    std::vector<std::string> messages = {};
};

void runCases(const std::vector<ProgramCase>& cases, RunSaveAction action = RunSaveAction::Test) {
    for (const auto& c : cases) {
        ScriptedPrompts prompts;
        AutoReverseGenerator gen{prompts, ProjectFormatter};
        c.edit(gen.settings);
        EXPECT_EQ(gen.Generate(action), Program(c.program)) << c.what;
        EXPECT_EQ(prompts.asked, c.messages) << c.what;
    }
}

AutoReverseSettings fromLimit(StartStyle style, const char* h = "400") {
    AutoReverseSettings s;
    s.CmbHomeStyle = style;
    s.TxtHomePosition = h;
    s.CmbMovePosition = MoveMode::Distance;
    s.TxtMovePosition = style == StartStyle::NegativeLimit ? "1000" : "-1000";
    return s;
}

} // namespace

TEST(AutoReverseProgram, StartStylesAndInstances) {
    using S = StartStyle;
    using I = StartInstance;
    runCases({
        {"the tool's defaults", [](auto&) {},
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, setDM1, R"},
        {"the worked example",
         [](auto& s) {
             s = fromLimit(S::NegativeLimit);
             s.CmbHomeIO = UserAction::Pause;
             s.TxtHomePause = "1.5";
             s.CmbRepeat = RepeatMode::Do;
             s.TxtRepeat = "5";
         },
         "F, PM-0, S1M500, I1M-0, IA1M-0, IA1M400, LM0, P15, S1M2000, I1M1000, S1M2000, IA1M400, "
         "LA5, setDM1, R"},
        {"from the positive limit the return keeps H's sign",
         [](auto& s) {
             s = fromLimit(S::PositiveLimit);
             s.CurrentMotor = 2;
         },
         "F, PM-0, S2M500, I2M0, IA2M-0, IA2M-400, LM0, S2M2000, I2M-1000, S2M2000, IA2M400, "
         "setDM1, R"},
        {"a start position of 0 adds no absolute move",
         [](auto& s) { s = fromLimit(S::NegativeLimit, "0"); },
         "F, PM-0, S1M500, I1M-0, IA1M-0, LM0, S1M2000, I1M1000, S1M2000, IA1M0, setDM1, R"},
        {"blank instance is every run",
         [](auto& s) {
             s = fromLimit(S::NegativeLimit);
             s.CmbHomeInstance = I::Blank;
         },
         "F, PM-0, S1M500, I1M-0, IA1M-0, IA1M400, LM0, S1M2000, I1M1000, S1M2000, IA1M400, "
         "setDM1, R"},
        {"once after power-up: program 4 homes, program 0 repeats",
         [](auto& s) {
             s = fromLimit(S::PositiveLimit, "250.5");
             s.CmbHomeInstance = I::OnceAfterPowerUp;
         },
         "F, PM-4, S1M500, I1M0, IA1M-0, IA1M-250.5, PM-0, S1M2000, I1M-1000, S1M2000, "
         "IA1M250.5, setDM129, R"},
        {"no instance chosen: neither program marker nor loop marker",
         [](auto& s) {
             s = fromLimit(S::NegativeLimit);
             s.CmbHomeInstance = I::NotChosen;
         },
         "F, S1M500, I1M-0, IA1M-0, IA1M400, S1M2000, I1M1000, S1M2000, IA1M400, R"},
        {"the current location keeps a once-only instance, yet loops from its marker",
         [](auto& s) { s.CmbHomeInstance = I::OnceAfterPowerUp; },
         "F, PM-4, LM0, S1M2000, I1M400, S1M2000, IA1M0, setDM129, R"},
        {"an out-of-range start position is written, then the box is held",
         [](auto& s) { s = fromLimit(S::NegativeLimit, "+99999999"); },
         "F, PM-0, S1M500, I1M-0, IA1M-0, IA1M99999999, LM0, S1M2000, I1M1000, S1M2000, "
         "IA1M16777215, setDM1, R"},
    });
}

TEST(AutoReverseProgram, MoveModesAndVelocityStyles) {
    runCases({
        {"teach with no taught distance moves nothing", [](auto& s) { s.TxtMovePosition = "0"; },
         "F, PM-0, LM0, S1M2000, S1M2000, IA1M0, setDM1, R"},
        {"teach writes a fraction as it stands", [](auto& s) { s.TxtMovePosition = "-2.5"; },
         "F, PM-0, LM0, S1M2000, I1M-2.5, S1M2000, IA1M0, setDM1, R"},
        {"a distance of 0 from the current location seeks the + limit, unchecked",
         [](auto& s) {
             s.CmbMovePosition = MoveMode::Distance;
             s.TxtMovePosition = "0";
         },
         "F, PM-0, LM0, S1M2000, I1M0, S1M2000, IA1M0, setDM1, R"},
        {"to the positive limit", [](auto& s) { s.CmbMovePosition = MoveMode::ToPositiveLimit; },
         "F, PM-0, LM0, S1M2000, I1M0, S1M2000, IA1M0, setDM1, R"},
        {"to the negative limit, speed held for the seek",
         [](auto& s) {
             s.CmbMovePosition = MoveMode::ToNegativeLimit;
             s.TxtMoveSpeed = "2500";
         },
         "F, PM-0, LM0, S1M2000, I1M-0, S1M2000, IA1M0, setDM1, R",
         {"Error: Moving Speed: Speed Too High"}},
        {"a distance move may go to 6000, no further",
         [](auto& s) {
             s.CmbMovePosition = MoveMode::Distance;
             s.TxtMoveSpeed = "5000";
             s.TxtReturnSpeed = "6000.5";
         },
         "F, PM-0, LM0, S1M5000, I1M400, S1M6000, IA1M0, setDM1, R"},
        {"negative speeds are held at 0 outside a seek", [](auto& s) { s.TxtReturnSpeed = "-3"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M0, IA1M0, setDM1, R"},
        {"analog ranges by their codes",
         [](auto& s) {
             s = fromLimit(StartStyle::NegativeLimit);
             s.CmbVelocityStyleHome = 7;
             s.CmbVelocityStyleMove = 21;
             s.CmbVelocityStyleReturn = 3;
             s.CurrentMotor = 4;
         },
         "F, PM-0, S4M-11, I4M-0, IA4M-0, IA4M400, LM0, S4M-51, I4M1000, S4M-3, IA4M400, "
         "setDM1, R"},
        {"analog range 1 and 6",
         [](auto& s) {
             s.CmbVelocityStyleMove = 1;
             s.CmbVelocityStyleReturn = 6;
         },
         "F, PM-0, LM0, S1M-1, I1M400, S1M-6, IA1M0, setDM1, R"},
        {"an analog style skips the seek speed check",
         [](auto& s) {
             s.CmbMovePosition = MoveMode::ToPositiveLimit;
             s.CmbVelocityStyleMove = 12;
             s.TxtMoveSpeed = "2000 to 3000 Steps / Sec = ";
         },
         "F, PM-0, LM0, S1M-21, I1M0, S1M2000, IA1M0, setDM1, R"},
    });
}

TEST(AutoReverseProgram, ActionsPausesAndRepeats) {
    const auto withActions = [](UserAction home, UserAction back) {
        return [=](AutoReverseSettings& s) {
            s.CmbHomeIO = home;
            s.CmbReturnPosition = back;
        };
    };
    using A = UserAction;
    runCases({
        {"run button, input 1", withActions(A::WaitRunButton, A::WaitInput1),
         "F, PM-0, LM0, U90, S1M2000, I1M400, U0, S1M2000, IA1M0, setDM1, R"},
        {"output 1", withActions(A::Output1On, A::Output1Off),
         "F, PM-0, LM0, U5, S1M2000, I1M400, U4, S1M2000, IA1M0, setDM1, R"},
        {"return pause",
         [](auto& s) {
             s.CmbReturnPosition = A::Pause;
             s.TxtReturnPause = "0.25";
         },
         "F, PM-0, LM0, S1M2000, I1M400, P3, S1M2000, IA1M0, setDM1, R"},
        {"continuous ignores the count",
         [](auto& s) {
             s.CmbRepeat = RepeatMode::DoContinuous;
             s.TxtRepeat = "7";
         },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, L0, setDM1, R"},
        {"twice", [](auto& s) { s.TxtRepeat = "2"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, LA2, setDM1, R"},
        {"a fractional count as it stands", [](auto& s) { s.TxtRepeat = "2.5"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, LA2.5, setDM1, R"},
        {"below two is once", [](auto& s) { s.TxtRepeat = "1.99"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, setDM1, R"},
        {"the most", [](auto& s) { s.TxtRepeat = "65535"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, LA65535, setDM1, R"},
        {"more than the most", [](auto& s) { s.TxtRepeat = "65535.5"; },
         "F, PM-0, LM0, S1M2000, I1M400, S1M2000, IA1M0, LA65535, setDM1, R"},
    });
}

// Every pause reads its box back after writing it with one decimal and thousands commas; the
// reread stops at the comma.
TEST(AutoReverseProgram, PauseBoxRepairedThenReread) {
    const struct {
        const char* typed;
        const char* box;
        const char* command;
    } cases[] = {
        {"", "0.1", "P1,"},          {"0.05", "0.1", "P1,"},        {"0.1", "0.1", "P1,"},
        {"1.5", "1.5", "P15,"},      {"2.25", "2.3", "P23,"},       {"999.9", "999.9", "P9999,"},
        {"1000", "1,000.0", "P10,"}, {"6553.5", "6,553.5", "P60,"}, {"1e9", "6,553.5", "P60,"},
        {"-4", "0.1", "P1,"},        {"3 s", "3.0", "P30,"},
    };
    for (const auto& c : cases) {
        ScriptedPrompts prompts;
        AutoReverseGenerator gen{prompts, ProjectFormatter};
        gen.settings.CmbHomeIO = UserAction::Pause;
        gen.settings.TxtHomePause = c.typed;
        gen.settings.CmbReturnPosition = UserAction::Pause;
        gen.settings.TxtReturnPause = c.typed;
        const auto text = gen.Generate(RunSaveAction::Test);
        EXPECT_EQ(gen.settings.TxtHomePause, c.box) << c.typed;
        EXPECT_EQ(gen.settings.TxtReturnPause, c.box) << c.typed;
        EXPECT_EQ(text, Program(std::string("F, PM-0, LM0, ") + c.command + " S1M2000, I1M400, " +
                                c.command + " S1M2000, IA1M0, setDM1, R"))
            << c.typed;
        EXPECT_TRUE(prompts.asked.empty());
    }
}

TEST(AutoReverseProgram, RepeatBoxRepairs) {
    for (const auto& [typed, box] : {std::pair{"0", "1"},
                                     {"", "1"},
                                     {"-3", "1"},
                                     {"0.5", "1"},
                                     {"70000", "65535"},
                                     {"1", "1"},
                                     {"12x", "12x"}}) {
        ScriptedPrompts prompts;
        AutoReverseGenerator gen{prompts, ProjectFormatter};
        gen.settings.TxtRepeat = typed;
        gen.UpDateLoop();
        EXPECT_EQ(gen.settings.TxtRepeat, box) << typed;
    }
}

TEST(AutoReverseProgram, SeekSpeedChecks) {
    const struct {
        const char* speed;
        const char* repaired;
        const char* message; // "" for none
    } cases[] = {
        {"2000", "2000", ""},
        {"0", "0", ""},
        {"2000.5", "2000", "Speed Too High"},
        {"1,999", "1", ""}, // numeric, and read up to its comma
        {"-0.5", "0", "Speed Too Low"},
        {"", "500", "Invalid Speed"},
        {"fast", "500", "Invalid Speed"},
        {"1 to 1000 Steps / Sec = ", "500", "Invalid Speed"},
    };
    for (const auto& c : cases) {
        for (const bool home : {true, false}) {
            ScriptedPrompts prompts;
            AutoReverseGenerator gen{prompts, ProjectFormatter};
            auto& s = gen.settings;
            s = fromLimit(StartStyle::NegativeLimit);
            s.CmbMovePosition = home ? MoveMode::Distance : MoveMode::ToNegativeLimit;
            (home ? s.TxtHomeSpeed : s.TxtMoveSpeed) = c.speed;
            const auto text = gen.Generate(RunSaveAction::Test);
            EXPECT_EQ(home ? s.TxtHomeSpeed : s.TxtMoveSpeed, c.repaired) << c.speed;
            const auto seek = std::string("S1M") + c.repaired + ",\r";
            EXPECT_NE(text.find(home ? "PM-0,\r" + seek + "I1M-0," : seek + "I1M-0,\rS1M2000"),
                      std::string::npos)
                << c.speed << "\n"
                << text;
            const std::vector<std::string> expected =
                *c.message == 0
                    ? std::vector<std::string>{}
                    : std::vector<std::string>{
                          std::string(home ? "Error: Homing Speed: " : "Error: Moving Speed: ") +
                          c.message};
            EXPECT_EQ(prompts.asked, expected) << c.speed;
        }
    }
}

TEST(AutoReverseProgram, DirectionChecksAgainstTheStartStyle) {
    using S = StartStyle;
    const struct {
        S style;
        const char* h;
        const char* m;
        const char* sentence; // "" when the move passes
        const char* repaired;
    } cases[] = {
        {S::NegativeLimit, "0", "-5", "Maximum Travel must be in the positive direction", "400"},
        {S::NegativeLimit, "0", "0",
         "Maximum Travel is a value greater than zero steps, and in the positive direction", "400"},
        {S::NegativeLimit, "300", "0",
         "Maximum Travel is a value greater than zero steps, and in the positive direction", "400"},
        {S::NegativeLimit, "300", "-301", "Maximum Travel is -300 Steps", "-300"},
        {S::NegativeLimit, "300", "-300", "", "-300"},
        {S::NegativeLimit, "300", "99999", "", "99999"},
        {S::NegativeLimit, "0", "5", "", "5"},
        {S::PositiveLimit, "0", "5", "Maximum Travel must be in the negative direction", "-400"},
        {S::PositiveLimit, "0", "0",
         "Maximum Travel is a value greater than zero steps, and in the negative direction",
         "-400"},
        {S::PositiveLimit, "300", "300.5", "Maximum Travel is 300 Steps", "300"},
        {S::PositiveLimit, "300", "300", "", "300"},
        {S::PositiveLimit, "300", "-99999", "", "-99999"},
        {S::CurrentLocation, "0", "-5", "", "-5"},
    };
    for (const auto& c : cases) {
        ScriptedPrompts prompts;
        AutoReverseGenerator gen{prompts, ProjectFormatter};
        gen.settings = fromLimit(c.style, c.h);
        gen.settings.TxtMovePosition = c.m;
        gen.UpDateMove();
        EXPECT_EQ(gen.settings.TxtMovePosition, c.repaired) << c.h << " " << c.m;
        const std::vector<std::string> expected =
            *c.sentence == 0
                ? std::vector<std::string>{}
                : std::vector<std::string>{std::string("Error: Moving Direction: Invalid "
                                                       "Distance\r\n\r\n") +
                                           c.sentence};
        EXPECT_EQ(prompts.asked, expected) << c.h << " " << c.m;
        EXPECT_NE(gen.sections.TxtMoveType.find("I1M" + std::string(c.repaired) + ","),
                  std::string::npos)
            << "the command uses the repaired distance";
    }
}

// The whole text is korval-cli autoreverse --file's test; here, the sections the window shows.
TEST_F(AutoReverseFixture, TheWorkedExampleCommentedForAFile) {
    gen.settings = fromLimit(StartStyle::NegativeLimit);
    gen.settings.CmbHomeIO = UserAction::Pause;
    gen.settings.TxtHomePause = "1.5";
    gen.settings.TxtRepeat = "5";
    EXPECT_TRUE(gen.Generate(RunSaveAction::File).ends_with("R\t\t;Run the current program\r\n"));
    EXPECT_EQ(gen.sections.TxtRunSaveType, "setDM1,\t\t;Set the operating mode word to 1\r\n")
        << "the file's R is added to the whole, not to its section";
    EXPECT_EQ(gen.sections.TxtHomeUserIO, "P15,\t\t;Pause 1.5 seconds\r\n");
    EXPECT_EQ(gen.sections.TxtRepeatType, "LA5,\r\n") << "the repeat is not commented";
}
