// The motor test through the real driver and the virtual controller: the settings really change
// in the controller during the test, the axis really goes 400 steps out and back, and the old
// settings really come back.
#include "ScriptedPrompts.h"
#include "SimLink.h"
#include "axis/AxisSet.h"
#include "axis/MotorTest.h"

using namespace korval;
using namespace korval::testing;
using Clock = std::chrono::steady_clock;

namespace {

struct ControllerView final : MotorTestView {
    std::function<void(const std::string&)> onPosition;
    std::vector<std::string> positions;
    void ShowPleaseWait(bool) override {}
    void SetHourglass(bool) override {}
    void ShowPosition(const std::string& steps) override {
        positions.push_back(steps);
        if (onPosition) {
            onPosition(steps);
        }
    }
    void SelectSettings(int, int) override {}
};

struct MotorTestSim : SimLink {
    AxisSet axes{kdx};
    ScriptedPrompts prompts;
    MotorTest test{kdx, delay, prompts, {}};
    ControllerView view;
    std::vector<std::string> seenDuringTest;

    MotorTestResult runAxis1() {
        // Vexta PK264-03 is motor setting 3; Auto-Detect is limit setting 0.
        return test.Run(axes.Axis1, 1, MotorMake::Vexta, 3, 0, view);
    }
    std::string settings() { return query("getM1M,") + query("getL1M,"); }
};

} // namespace

TEST_F(MotorTestSim, ARefusedTestMovesOutAndBackAndPutsTheOldSettingsBack) {
    startSim();
    const auto before = settings();
    EXPECT_EQ(before, "0\r1\r") << "the controller's settings at power-up";
    view.onPosition = [&](const std::string&) { seenDuringTest.push_back(settings()); };
    prompts.answer({Yes, No});
    EXPECT_EQ(runAxis1().outcome, MotorTestOutcome::Restored);
    EXPECT_EQ(view.positions, (std::vector<std::string>{"400", "0"}));
    EXPECT_EQ(seenDuringTest, (std::vector<std::string>{"3\r0\r", "3\r0\r"}));
    EXPECT_EQ(settings(), before);
}

TEST_F(MotorTestSim, AKeptTestLeavesTheNewSettingsInTheController) {
    startSim();
    prompts.answer({Yes, Yes});
    EXPECT_EQ(runAxis1().outcome, MotorTestOutcome::Kept);
    EXPECT_EQ(view.positions, (std::vector<std::string>{"400", "0"}));
    EXPECT_EQ(settings(), "3\r0\r");
}

TEST_F(MotorTestSim, AControllerThatFallsSilentGetsItsSettingsBackWhenItAnswersAgain) {
    startSim();
    std::optional<Clock::time_point> silentSince;
    view.onPosition = [&](const std::string&) {
        setSilent(true); // the cable comes loose after the first move
        silentSince = Clock::now();
    };
    wait.hook = [&] {
        if (silentSince && Clock::now() - *silentSince > std::chrono::milliseconds(1500)) {
            setSilent(false);
            silentSince.reset();
        }
    };
    const auto result = runAxis1();
    EXPECT_EQ(result.outcome, MotorTestOutcome::Restored);
    EXPECT_EQ(view.positions, std::vector<std::string>{"400"}) << "the way back never ran";
    EXPECT_EQ(prompts.shown, (std::vector<std::string>{
                                 "Axis Settings Test: Original settings restored.\r\n\r\nTry again "
                                 "with the correct settings"}));
    EXPECT_EQ(settings(), "0\r1\r");
}
