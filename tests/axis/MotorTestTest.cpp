// The motor test's sequence of driver calls and questions, against a recording driver.
#include "axis/MotorTest.h"
#include "FakeDriver.h"
#include "axis/AxisSet.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

using namespace korval;
using namespace korval::testing;

namespace {

struct ViewLog final : MotorTestView {
    std::vector<std::string> events;
    std::function<void()> onPosition;
    void ShowPleaseWait(bool shown) override { events.push_back(shown ? "wait" : "/wait"); }
    void SetHourglass(bool busy) override { events.push_back(busy ? "busy" : "/busy"); }
    void ShowPosition(const std::string& steps) override {
        events.push_back("at " + steps);
        if (onPosition) {
            onPosition();
        }
    }
    void SelectSettings(int motor, int limit) override {
        events.push_back("select " + std::to_string(motor) + " " + std::to_string(limit));
    }
};

const std::string Moved = "Axis Settings Test: Did the motor appear to move properly?";
const std::string Keep = "Save Axis Settings: Do you want to keep these settings?";
const std::string RestoredBox =
    "Axis Settings Test: Original settings restored.\r\n\r\nTry again with the correct settings";

struct MotorTestFixture : ::testing::Test {
    VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    AxisSet axes{driver};
    ScriptedPrompts prompts;
    bool stop = false;
    MotorTest test{driver, delay, prompts, [this] { return stop; }};
    ViewLog view;

    void SetUp() override {
        driver.AttachTable(FakeTable());
        fake.motor[2] = 5;
        fake.limit[2] = -2;
        fake.positions = {"+400\r\n", "0\r\n"};
    }
    MotorTestResult run(int axis = 2, MotorMake make = MotorMake::Vexta, int row = 3,
                        int limit = 1) {
        return test.Run(*axes.ByNumber(axis), axis, make, row, limit, view);
    }
    double elapsed() const {
        return std::chrono::duration<double>(clock.t.time_since_epoch()).count();
    }
};

const std::vector<std::string> TestCalls = {
    "getM2",
    "getL2",
    "setM2M3",
    "setL2M1",
    "send C,S2M2000,,I2M400",
    "run 10000",
    "position 2",
    "send C,S2M2000,,I2M-400",
    "run 10000",
    "position 2",
};

std::vector<std::string> plus(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace

TEST(MotorTestCommand, IsTheSpeedAndTheIndexWithTheirDoubleComma) {
    EXPECT_EQ(MotorTest::MoveCommand(1, 400), "C,S1M2000,,I1M400");
    EXPECT_EQ(MotorTest::MoveCommand(4, -400), "C,S4M2000,,I4M-400");
}

TEST_F(MotorTestFixture, TheAnswersDecideWhetherTheOldSettingsComeBack) {
    const struct {
        std::vector<Prompts::Answer> answers;
        std::vector<std::string> asked;
        MotorTestOutcome outcome;
        std::vector<std::string> afterMoves;
    } cases[] = {
        {{Yes, Yes}, {Moved, Keep}, MotorTestOutcome::Kept, {}},
        {{Yes, No},
         {Moved, Keep, RestoredBox},
         MotorTestOutcome::Restored,
         {"setM2M5", "setL2M-2"}},
        {{No}, {Moved, RestoredBox}, MotorTestOutcome::Restored, {"setM2M5", "setL2M-2"}},
    };
    for (const auto& c : cases) {
        SetUp();
        prompts = ScriptedPrompts{};
        prompts.answers.assign(c.answers.begin(), c.answers.end());
        view.events.clear();
        const auto result = run();
        EXPECT_EQ(result.outcome, c.outcome);
        EXPECT_EQ(result.prevMotorSetting, 5);
        EXPECT_EQ(result.prevLimitSetting, -2);
        EXPECT_EQ(prompts.asked, c.asked);
        EXPECT_EQ(fake.calls, plus(TestCalls, c.afterMoves));
        EXPECT_EQ(fake.motor[2], c.outcome == MotorTestOutcome::Kept ? 3 : 5);
        EXPECT_EQ(fake.limit[2], c.outcome == MotorTestOutcome::Kept ? 1 : -2);
        const std::vector<std::string> during = {"wait", "busy",  "at 400",
                                                 "at 0", "/wait", "/busy"};
        EXPECT_EQ(view.events, c.outcome == MotorTestOutcome::Kept
                                   ? during
                                   : plus(during, {"busy", "select 5 -2", "/busy"}));
    }
}

TEST_F(MotorTestFixture, ASettingThatCannotBeKeptIsNeverWritten) {
    const struct {
        MotorMake make;
        int row;
        int limit;
    } cases[] = {
        {MotorMake::Vexta, 0, 1},  {MotorMake::Vexta, 6, 1},        {MotorMake::Superior, 1, 1},
        {MotorMake::Vexta, -1, 1}, {MotorMake::MotorSetting, 7, 1}, {MotorMake::Vexta, 3, 3},
        {MotorMake::Vexta, 3, -3},
    };
    for (const auto& c : cases) {
        SetUp();
        prompts = ScriptedPrompts{};
        EXPECT_EQ(run(2, c.make, c.row, c.limit).outcome, MotorTestOutcome::NotStarted);
        EXPECT_TRUE(fake.calls.empty()) << c.row << " " << c.limit;
        ASSERT_EQ(prompts.asked.size(), 1u);
    }
    prompts.answer({No});
    EXPECT_EQ(run(2, MotorMake::MotorSetting, 0, -2).outcome, MotorTestOutcome::Restored)
        << "setting 0 and limit -2 are good under Motor Setting";
}

TEST_F(MotorTestFixture, NoAnswerToTheFirstReadChangesNothing) {
    fake.motor[2] = -1; // the driver's reading of a silent controller
    EXPECT_EQ(run().outcome, MotorTestOutcome::NotStarted);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"getM2", "getL2"}));
    EXPECT_EQ(prompts.asked, (std::vector<std::string>{
                                 "Axis Settings Test: The controller did not answer, so nothing "
                                 "was changed."}));
    EXPECT_EQ(view.events, (std::vector<std::string>{"wait", "busy", "/wait", "/busy"}));
}

TEST_F(MotorTestFixture, AControllerSilentFromTheFirstWriteIsRestoredWhenItAnswersAgain) {
    // The new motor setting goes unanswered, then two restore attempts, then it answers.
    fake.setFailures = 4;
    const auto result = run();
    EXPECT_EQ(result.outcome, MotorTestOutcome::Restored);
    EXPECT_EQ(fake.calls,
              (std::vector<std::string>{"getM2", "getL2", "setM2M3", "setM2M5", "setL2M-2",
                                        "setM2M5", "setL2M-2", "setM2M5", "setL2M-2"}));
    EXPECT_EQ(elapsed(), 2 * MotorTest::RestoreRetryPause);
    EXPECT_EQ(prompts.asked, std::vector<std::string>{RestoredBox}) << "no question is put";
    EXPECT_EQ(fake.motor[2], 5);
    EXPECT_EQ(fake.limit[2], -2);
}

TEST_F(MotorTestFixture, AControllerThatNeverAnswersAgainIsReportedNotRestored) {
    fake.setFailures = 1000;
    const auto result = run(2);
    EXPECT_EQ(result.outcome, MotorTestOutcome::NotRestored);
    EXPECT_EQ(std::count(fake.calls.begin(), fake.calls.end(), "setM2M5"),
              MotorTest::RestoreAttempts);
    ASSERT_EQ(prompts.asked.size(), 1u);
    EXPECT_EQ(prompts.asked[0],
              "Axis Settings Test: The controller did not answer, so the original settings could "
              "not be restored.\r\n\r\nAxis 2 had motor setting 5 and limit setting -2 before the "
              "test.");
    EXPECT_EQ(prompts.icons[0], Prompts::Icon::Warning);
    EXPECT_EQ(std::count(view.events.begin(), view.events.end(), "select 5 -2"), 0)
        << "the lists don't claim settings the controller may not hold";
}

TEST_F(MotorTestFixture, StopEndsTheTestAfterTheMoveUnderWayAndRestores) {
    view.onPosition = [this] { stop = true; };
    const auto result = run();
    EXPECT_EQ(result.outcome, MotorTestOutcome::Restored);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"getM2", "getL2", "setM2M3", "setL2M1",
                                                    "send C,S2M2000,,I2M400", "run 10000",
                                                    "position 2", "setM2M5", "setL2M-2"}));
    EXPECT_EQ(prompts.asked, std::vector<std::string>{RestoredBox});
}
