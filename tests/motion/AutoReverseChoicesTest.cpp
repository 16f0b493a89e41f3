#include "AutoReverseFixture.h"

#include "motion/AutoReverseSetting.h"

using namespace korval;
using namespace korval::testing;

namespace {

// Applies "NAME=VALUE ..." in order; returns the problems, one for each refused pair.
std::vector<std::string> apply(AutoReverseGenerator& gen, const std::string& pairs) {
    std::istringstream words(pairs);
    std::vector<std::string> problems;
    for (std::string word; words >> word;) {
        const auto outcome = ApplyAutoReverseAssignment(gen, word);
        EXPECT_EQ(outcome.applied, outcome.problem.empty()) << word;
        if (!outcome.applied) {
            problems.push_back(outcome.problem);
        }
    }
    return problems;
}

} // namespace

TEST_F(AutoReverseFixture, FromCurrentLocationZeroesAndReadsThePositionBack) {
    gen.SetController(&kdx);
    kdx.position = "  +1,234\r";
    gen.settings.CurrentMotor = 3;
    gen.settings.CmbHomeInstance = StartInstance::OnceAfterPowerUp;
    const auto text = gen.Generate(RunSaveAction::Store);
    EXPECT_EQ(kdx.calls, (std::vector<std::string>{"send C,IA3M-0,", "run 1", "position 3"}));
    EXPECT_EQ(gen.settings.TxtHomePosition, "1") << "the read-out is cleaned as a position";
    EXPECT_EQ(text, Program("F, PM-4, LM0, S3M2000, I3M400, S3M2000, IA3M1, setDM129, rsm"));
}

TEST_F(AutoReverseFixture, AWindowClosedDuringTheZeroingStopsTheNextSteps) {
    gen.SetController(&kdx);
    kdx.position = "-77";
    gen.settings.TxtHomePosition = "12+3";
    for (const auto& [shownFor, calls, h] :
         {std::tuple{0, std::vector<std::string>{}, "123"},
          {1, std::vector<std::string>{"send C,IA1M-0,"}, "123"},
          {2, std::vector<std::string>{"send C,IA1M-0,", "run 1"}, "123"},
          {3, std::vector<std::string>{"send C,IA1M-0,", "run 1", "position 1"}, "-77"}}) {
        kdx.calls.clear();
        kdx.visibleFor = shownFor;
        gen.settings.TxtHomePosition = "12+3";
        gen.UpDateHome();
        EXPECT_EQ(kdx.calls, calls) << shownFor;
        EXPECT_EQ(gen.settings.TxtHomePosition, h) << shownFor;
    }
}

TEST_F(AutoReverseFixture, LimitStylesNeverTouchTheController) {
    gen.SetController(&kdx);
    apply(gen, "CmbHomeStyle=2 TxtHomePosition=50 CmbHomeStyle=1");
    gen.Generate(RunSaveAction::Test);
    EXPECT_TRUE(kdx.calls.empty());
}

TEST_F(AutoReverseFixture, ChoosingAStartStyleSetsThePositionAndTheMoveMode) {
    EXPECT_FALSE(gen.HomeInstanceShown());
    gen.ChooseHomeStyle(1);
    EXPECT_TRUE(gen.HomeInstanceShown());
    EXPECT_EQ(gen.settings.TxtHomePosition, "400");
    EXPECT_EQ(gen.settings.CmbMovePosition, MoveMode::Distance);
    gen.ChooseMovePosition(0);
    EXPECT_EQ(gen.settings.CmbMovePosition, MoveMode::Distance) << "teach snaps back";
    gen.ChooseMovePosition(3);
    gen.ChooseHomeStyle(0);
    EXPECT_FALSE(gen.HomeInstanceShown());
    EXPECT_EQ(gen.settings.CmbMovePosition, MoveMode::Teach);
    EXPECT_EQ(gen.settings.TxtHomePosition, "400") << "a current-location start keeps its box";
    EXPECT_TRUE(prompts.asked.empty());
}

// A range fills its box with its words; steps per second puts each box's own default back.
TEST_F(AutoReverseFixture, ChoosingAVelocityStyleFillsTheSpeedBox) {
    gen.ChooseVelocityStyle(SpeedBox::Move, 21);
    EXPECT_EQ(gen.settings.TxtMoveSpeed, "5000 to 6000 Steps / Sec = ");
    gen.ChooseVelocityStyle(SpeedBox::Home, 2);
    gen.ChooseVelocityStyle(SpeedBox::Home, 0);
    EXPECT_EQ(gen.settings.TxtHomeSpeed, "500");
    EXPECT_TRUE(prompts.asked.empty()) << "no seek here: every range is allowed";
}

TEST_F(AutoReverseFixture, RangesAbove2000AreRefusedForASeek) {
    const struct {
        SpeedBox box;
        int moveMode;
        int index;
        int kept;
    } cases[] = {
        {SpeedBox::Home, 0, 3, 1}, {SpeedBox::Home, 0, 6, 1},   {SpeedBox::Home, 0, 7, 7},
        {SpeedBox::Home, 0, 8, 1}, {SpeedBox::Home, 0, 21, 1},  {SpeedBox::Home, 0, 2, 2},
        {SpeedBox::Move, 2, 4, 1}, {SpeedBox::Move, 3, 15, 1},  {SpeedBox::Move, 3, 7, 7},
        {SpeedBox::Move, 1, 4, 4}, {SpeedBox::Move, 0, 21, 21}, {SpeedBox::Return, 2, 21, 21},
    };
    for (const auto& c : cases) {
        ScriptedPrompts shown;
        AutoReverseGenerator g{shown, ProjectFormatter};
        g.settings.CmbMovePosition = static_cast<MoveMode>(c.moveMode);
        g.ChooseVelocityStyle(c.box, c.index);
        const int style = c.box == SpeedBox::Home   ? g.settings.CmbVelocityStyleHome
                          : c.box == SpeedBox::Move ? g.settings.CmbVelocityStyleMove
                                                    : g.settings.CmbVelocityStyleReturn;
        EXPECT_EQ(style, c.kept) << c.index;
        EXPECT_EQ(shown.asked.size(), c.kept == c.index ? 0u : 1u) << c.index;
        if (c.kept != c.index) {
            EXPECT_EQ(shown.asked[0], "Error: Homing Speed: Speed Too High");
        }
    }
}

TEST_F(AutoReverseFixture, NamedSettingsAppliedInOrder) {
    EXPECT_TRUE(apply(gen, "TxtHomePosition=1000 CmbHomeStyle=1").empty());
    EXPECT_EQ(gen.settings.TxtHomePosition, "400") << "the style's click sets the position";
    EXPECT_TRUE(apply(gen, "CmbHomeStyle=1 TxtHomePosition=1000 TxtMovePosition=50").empty());
    EXPECT_EQ(gen.settings.TxtHomePosition, "1000");
    EXPECT_EQ(gen.settings.CmbMovePosition, MoveMode::Distance);
    EXPECT_TRUE(apply(gen, "CurrentMotor=4 CmbRepeat=1 TxtRepeat=9 CmbReturnPosition=6").empty());
    EXPECT_EQ(gen.Generate(RunSaveAction::Test),
              Program("F, PM-0, S4M500, I4M-0, IA4M-0, IA4M1000, LM0, S4M2000, I4M50, U15, "
                      "S4M2000, IA4M1000, L0, setDM1, R"));
    EXPECT_TRUE(prompts.asked.empty());
}

TEST_F(AutoReverseFixture, BadNamesAndIndexesAreRefusedWithoutEffect) {
    const auto before = gen.settings;
    EXPECT_EQ(apply(gen, "CmbHomeStyle=3 CmbRepeat=-1 CmbHomeIO=1.0 CmbVelocityStyleHome=22 "
                         "CurrentMotor=0 CurrentMotor=5 CmbHomeInstance= Colour=red "
                         "TxtHomeposition=1 NoEquals"),
              (std::vector<std::string>{
                  "CmbHomeStyle takes a number from 0 to 2, not \"3\"",
                  "CmbRepeat takes a number from 0 to 1, not \"-1\"",
                  "CmbHomeIO takes a number from 0 to 7, not \"1.0\"",
                  "CmbVelocityStyleHome takes a number from 0 to 21, not \"22\"",
                  "CurrentMotor takes a number from 1 to 4, not \"0\"",
                  "CurrentMotor takes a number from 1 to 4, not \"5\"",
                  "CmbHomeInstance takes a number from 0 to 2, not \"\"",
                  "no setting is named \"Colour\"",
                  "no setting is named \"TxtHomeposition\"",
                  "\"NoEquals\" is not NAME=VALUE",
              }));
    EXPECT_EQ(gen.settings.CmbHomeStyle, before.CmbHomeStyle);
    EXPECT_EQ(gen.settings.CurrentMotor, 1);
    EXPECT_TRUE(ApplyAutoReverseAssignment(gen, "TxtMovePosition=a=b").applied);
    EXPECT_EQ(gen.settings.TxtMovePosition, "a=b") << "split at the first =";
}
