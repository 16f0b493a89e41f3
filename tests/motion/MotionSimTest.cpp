// Jog, QuickMove and AutoReverse through both real libraries, over a pseudo-terminal, against
// the virtual controller.
#include "AutoReverseFixture.h"

#include "motion/AutoReverseActions.h"
#include "motion/AutoReverseSetting.h"
#include "motion/AutoReverseTeach.h"
#include "motion/AxesPresent.h"
#include "motion/KdxAutoReverseController.h"
#include "motion/QuickMove.h"
#include "sim/PtyHost.h"

#include "core/ui/QtWaitContext.h"
#include "link/ClsKdxCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>

using namespace korval;
using namespace korval::testing;

namespace {

struct MotionSim : ::testing::Test {
    QtWaitContext wait;
    ClsTimeDelay delay{wait};
    ClsDriverKdx kdx{delay};
    ClsKdxCommands commands;
    ClsJog jog{kdx};
    KdxAutoReverseController controller{kdx};
    RecordedPrompts prompts;
    std::unique_ptr<sim::PtyHost> host;

    void SetUp() override {
        const std::string dir = KORVAL_DRIVER_DIR;
        ASSERT_NE(kdx.LoadDriver(dir + "/Tavrin KDX Serial Driver.so"), 0);
        ASSERT_NE(commands.LoadDll(dir + "/Tavrin KDX Commands.so"), 0);
        kdx.EscapeDriverFunctionFalse(); // the library outlives each test: start clean
    }
    void TearDown() override {
        kdx.PortClose();
        host.reset();
    }
    void online(const std::string& options = "") {
        sim::SimOptions o;
        std::string error;
        ASSERT_TRUE(sim::ParseSimOptions(options, o, error)) << error;
        host = std::make_unique<sim::PtyHost>(o);
        ASSERT_TRUE(host->start(error)) << error;
        ASSERT_EQ(kdx.PortOpenByName(host->device(), 9600), 1);
        kdx.BringOnline();
    }
    // Asks the status until the controller is no longer busy, for at most `seconds`.
    std::string settle(double seconds) {
        for (double waited = 0; waited < seconds; waited += 0.2) {
            if (const auto word = kdx.VerifyStatus(); word != "BUSY" && word != "JOGGING") {
                return word;
            }
            delay.TimeDelay(0.2);
        }
        return kdx.LastStatus;
    }
    long position(int motor) { return std::atol(kdx.GetCurrentMotorPosition(motor).c_str()); }
    std::string query(const std::string& text) {
        kdx.ClearPortChars();
        kdx.SendCommandsToPort(text);
        delay.TimeDelay(0.15);
        return kdx.ReadReplyAndClearPort();
    }
};

} // namespace

TEST_F(MotionSim, AJogRunsUntilItIsStopped) {
    online();
    jog.NegativeJog(2, 1500);
    delay.TimeDelay(0.5);
    EXPECT_EQ(kdx.VerifyStatus(), "JOGGING");
    jog.StopJog();
    EXPECT_EQ(settle(3), "ONLINEREADY");
    const long stoppedAt = position(2);
    EXPECT_LT(stoppedAt, -300);
    delay.TimeDelay(0.3);
    EXPECT_EQ(position(2), stoppedAt);
    EXPECT_EQ(position(1), 0) << "the other axis stayed";
}

TEST_F(MotionSim, AJogWritesItsPositionWhileItRunsAndOnceMoreWhereItStopped) {
    online();
    struct Seen {
        std::mutex mutex;
        std::vector<long> positions;
    } seen;
    const KdxSink target{&seen,
                         [](void* context, const char* text, std::int32_t length) {
                             auto& s = *static_cast<Seen*>(context);
                             const std::lock_guard lock(s.mutex);
                             s.positions.push_back(std::atol(std::string(text, length).c_str()));
                         },
                         0};
    const auto written = [&seen] {
        const std::lock_guard lock(seen.mutex);
        return seen.positions;
    };
    jog.PositiveJog(1, 2000, &target);
    delay.TimeDelay(0.7);
    const auto running = written();
    ASSERT_GE(running.size(), 3u) << "a position about every tenth of a second";
    EXPECT_TRUE(std::is_sorted(running.begin(), running.end()));
    EXPECT_GT(running.back(), running.front());
    jog.StopJog();
    EXPECT_EQ(settle(3), "ONLINEREADY");
    delay.TimeDelay(0.3);
    const auto stopped = written();
    EXPECT_EQ(stopped.back(), position(1)) << "the last one is where it stopped";
    delay.TimeDelay(0.3);
    EXPECT_EQ(written().size(), stopped.size()) << "nothing more once it ended";
}

TEST_F(MotionSim, TheAxesAChainDrivesAreFoundByAskingEach) {
    const struct {
        const char* arrangement;
        std::vector<int> there;
    } cases[] = {{"arrangement=2", {1, 2}},
                 {"arrangement=1+1", {1, 3}},
                 {"arrangement=2+2", {1, 2, 3, 4}},
                 {"arrangement=2,silent=2", {1}}};
    const std::vector<std::int32_t> all{1, 2, 3, 4};
    for (const auto& c : cases) {
        online(c.arrangement);
        const auto present = ProbeAxes(kdx, all);
        for (const int motor : all) {
            EXPECT_EQ(present.Has(motor), std::count(c.there.begin(), c.there.end(), motor) == 1)
                << c.arrangement << " axis " << motor;
        }
        EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY") << "asking leaves no error behind";
        kdx.PortClose();
        host.reset();
    }
}

TEST_F(MotionSim, TeachByJoggingThenTestTheProgram) {
    online();
    AutoReverseGenerator gen{prompts, commands.AsFormatter(), &controller};
    StartTeachJog(gen, jog, TeachFrame::Move, true);
    delay.TimeDelay(0.6);
    EndTeachJog(gen, jog, controller, TeachFrame::Move);
    const long taught = std::atol(gen.settings.TxtMovePosition.c_str());
    EXPECT_GT(taught, 400) << gen.settings.TxtMovePosition;
    EXPECT_EQ(settle(3), "ONLINEREADY");

    // Waiting for Input 1 holds the motor where the taught move left it.
    ASSERT_TRUE(ApplyAutoReverseSetting(gen, "CmbReturnPosition", "3").applied);
    const auto text = gen.Generate(RunSaveAction::Test);
    EXPECT_EQ(gen.settings.TxtHomePosition, "0") << "the start was made absolute zero";
    EXPECT_EQ(text, Program("F, PM-0, LM0, S1M2000, I1M" + std::to_string(taught) +
                            ", U0, S1M2000, IA1M0, setDM1, R"));
    SendAutoReverseProgram(controller, RunSaveAction::Test, text);
    delay.TimeDelay(1.0);
    EXPECT_EQ(kdx.VerifyStatus(), "BUSY") << "waiting for the input";
    EXPECT_EQ(position(1), taught) << "from the new zero";
    kdx.KillProgram();
    EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(MotionSim, StoreAOnceOnlyStartInProgramFour) {
    online();
    AutoReverseGenerator gen{prompts, commands.AsFormatter(), &controller};
    for (const auto* pair : {"CmbHomeStyle=1", "CmbHomeInstance=2", "TxtHomePosition=300",
                             "TxtMovePosition=2500", "CmbRepeat=1"}) {
        ASSERT_TRUE(ApplyAutoReverseAssignment(gen, pair).applied) << pair;
    }
    const auto text = gen.Generate(RunSaveAction::Store);
    SendAutoReverseProgram(controller, RunSaveAction::Store, text);
    EXPECT_EQ(query("getDM,"), "129\r") << "program 4 runs at power-up";
    EXPECT_EQ(kdx.GetProgramListing(4), "S1M500,I1M-0,IA1M-0,IA1M300,\r");
    EXPECT_EQ(kdx.GetProgramListing(0), "S1M2000,I1M2500,S1M2000,IA1M300,L0,\r");
    EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(MotionSim, QuickMovesInUserUnits) {
    online("arrangement=2+2");
    const auto move = [&](int motor, const char* advance, const char* v, const char* d,
                          QuickMoveDirection dir) {
        const auto out = PlanQuickMoveSingle(motor, 4, advance, v, d, dir);
        ASSERT_EQ(out.refusal, QuickMoveRefusal::None);
        SendQuickMove(kdx, delay, out.plan);
    };
    move(1, "0.5", "1000", "200", QuickMoveDirection::Positive);
    EXPECT_EQ(settle(3), "ONLINEREADY");
    EXPECT_EQ(position(1), 400);
    move(1, "0.5", "1000", "100", QuickMoveDirection::Negative); // waits for the end itself
    EXPECT_EQ(position(1), 200);

    QuickMoveGroup g1{true, 2, 0.01, "20", "-3", QuickMoveDirection::Positive};
    QuickMoveGroup g2{true, 4, 1, "1500", "250", QuickMoveDirection::Negative};
    const auto both = PlanQuickMoveMulti(g1, g2, 4);
    ASSERT_EQ(both.plan.commands, "C,(S4M1500,I4M-250,S2M2000,I2M300,),R");
    SendQuickMove(kdx, delay, both.plan); // returns once no longer busy
    EXPECT_EQ(kdx.LastStatus, "ONLINEREADY");
    EXPECT_EQ(position(2), 300);
    EXPECT_EQ(position(4), -250);
    EXPECT_EQ(position(3), 0);
}
