// The motor test through the real driver and the virtual controller, when the line fails half
// way: the old settings really come back once the controller answers again.
#include "axis/AxisSet.h"
#include "axis/MotorTest.h"
#include "support/ScriptedPrompts.h"
#include "support/SimLink.h"

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
};

} // namespace

TEST_F(MotorTestSim, AControllerThatFallsSilentGetsItsSettingsBackWhenItAnswersAgain) {
    startSim();
    online();
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
    // Vexta PK264-03 is motor setting 3; Auto-Detect is limit setting 0.
    const auto result = test.Run(axes.Axis1, 1, MotorMake::Vexta, 3, 0, view);
    EXPECT_EQ(result.outcome, MotorTestOutcome::Restored);
    EXPECT_EQ(view.positions, std::vector<std::string>{"400"}) << "the way back never ran";
    EXPECT_EQ(prompts.asked, (std::vector<std::string>{
                                 "Axis Settings Test: Original settings restored.\r\n\r\nTry again "
                                 "with the correct settings"}));
    EXPECT_EQ(query("getM1M,") + query("getL1M,"), "0\r1\r") << "the settings at power-up";
}
