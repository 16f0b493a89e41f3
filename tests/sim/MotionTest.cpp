#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

namespace {

// Steps the clock until the run ends, and no further than `limitMs`.
long runToEnd(KdxChain& chain, long limitMs) {
    long ms = 0;
    while (chain.running() && ms < limitMs) {
        chain.advanceMs(10);
        ms += 10;
    }
    return ms;
}

} // namespace

TEST(SimMotion, HomesToTheLimitLoopsFiveTimesAndReturns) {
    KdxChain chain = chainWith("travel=2000");
    ask(chain, "F,PM-0,S1M500,I1M-0,IA1M-0,IA1M400,LM0,P15,S1M2000,I1M1000,S1M2000,IA1M400,LA5,"
               "setDM1,R");
    EXPECT_TRUE(chain.running());
    // Homing: 2000 steps at 500 a second.
    chain.advanceMs(2000);
    EXPECT_TRUE(chain.moving(1));
    EXPECT_NEAR(static_cast<double>(chain.position(1)), -1000, 30);
    chain.advanceMs(1990);
    EXPECT_NEAR(static_cast<double>(chain.position(1)), -1995, 10);
    EXPECT_EQ(static_cast<unsigned char>(ask(chain, "?")[0]) & 1, 1);
    // On the switch it is zeroed, and it sets out for 400.
    chain.advanceMs(100);
    EXPECT_GT(chain.position(1), 0);
    EXPECT_LT(chain.position(1), 100);
    // Zeroed there, out to 400, then the first pause of 1.5 s.
    chain.advanceMs(1000);
    EXPECT_EQ(chain.position(1), 400);
    // Count the trips out to 1400 and back, sampling every 10 ms.
    int trips = 0;
    bool out = false;
    long maxPos = 0;
    for (int i = 0; i < 3000 && chain.running(); ++i) {
        chain.advanceMs(10);
        maxPos = std::max(maxPos, chain.position(1));
        if (!out && chain.position(1) == 1400) {
            out = true;
            ++trips;
        } else if (out && chain.position(1) == 400) {
            out = false;
        }
    }
    EXPECT_FALSE(chain.running());
    EXPECT_EQ(trips, 5);
    EXPECT_EQ(maxPos, 1400);
    EXPECT_EQ(chain.position(1), 400);
    EXPECT_EQ(chain.takeOutput(), "^");
    EXPECT_EQ(ask(chain, "getDM,"), "1\r");
}

TEST(SimMotion, MovesTakeTheTimeTheirSpeedGivesWithAShortRamp) {
    struct Case {
        const char* program;
        long target;
        long minMs, maxMs;
    } cases[] = {
        {"C,S1M1000,I1M1000,R", 1000, 1000, 1100},
        {"C,S1M2000,I1M-400,R", -400, 200, 280},
        {"C,S1M100,IA1M-50,R", -50, 500, 560},
        {"C,S2M6000,I2M6000,R", 6000, 1000, 1200},
    };
    for (const auto& c : cases) {
        KdxChain chain;
        ask(chain, c.program);
        const long ms = runToEnd(chain, 10000);
        const int axis = c.program[3] - '0';
        EXPECT_EQ(chain.position(axis), c.target) << c.program;
        EXPECT_GE(ms, c.minMs) << c.program;
        EXPECT_LE(ms, c.maxMs) << c.program;
    }
}

TEST(SimMotion, BracketsRunMovesTogetherAndOtherwiseOneAfterAnother) {
    KdxChain together;
    ask(together, "C,(S1M1000,I1M1000,S2M1000,I2M-500),R");
    together.advanceMs(300);
    EXPECT_TRUE(together.moving(1));
    EXPECT_TRUE(together.moving(2));
    const long ms = runToEnd(together, 5000);
    EXPECT_LE(ms, 800);
    EXPECT_EQ(together.position(1), 1000);
    EXPECT_EQ(together.position(2), -500);

    KdxChain apart;
    ask(apart, "C,S1M1000,I1M1000,S2M1000,I2M-500,R");
    apart.advanceMs(300);
    EXPECT_TRUE(apart.moving(1));
    EXPECT_FALSE(apart.moving(2));
    EXPECT_GE(runToEnd(apart, 5000), 1100);
    EXPECT_EQ(apart.position(2), -500);
}

TEST(SimMotion, PausesWaitsAndOutputsHappenInOrder) {
    KdxChain chain;
    ask(chain, "C,U5,P20,U4,U90,U15,U0,U14,R");
    EXPECT_EQ(chain.outputMask(), 1);
    chain.advanceMs(1990);
    EXPECT_EQ(chain.outputMask(), 1);
    chain.advanceMs(20);
    EXPECT_EQ(chain.outputMask(), 0);
    chain.advanceMs(5000);
    EXPECT_EQ(chain.outputMask(), 0); // waiting for the Run button
    chain.pressRunButton();
    chain.advanceMs(1);
    EXPECT_EQ(chain.outputMask(), 2);
    chain.setInput(2, true);
    chain.advanceMs(100);
    EXPECT_EQ(chain.outputMask(), 2); // Input 2 is not Input 1
    chain.setInput(1, true);
    chain.advanceMs(1);
    EXPECT_EQ(chain.outputMask(), 0);
    EXPECT_FALSE(chain.running());
    EXPECT_EQ(chain.takeOutput(), "^");
}

TEST(SimMotion, EndlessLoopRunsUntilStoppedAndStopDecelerates) {
    KdxChain chain;
    ask(chain, "C,S1M1000,I1M100,I1M-100,L0,R");
    chain.advanceMs(5000);
    EXPECT_TRUE(chain.running());
    EXPECT_EQ(ask(chain, "D"), "^");
    EXPECT_FALSE(chain.running());
    chain.advanceMs(100);
    EXPECT_EQ(ask(chain, "V"), "R");
    EXPECT_LE(std::abs(chain.position(1)), 100);
}

TEST(SimMotion, AnalogSpeedFollowsTheInputInsideItsRange) {
    struct Case {
        int range;
        int analog;
        double speed;
    } cases[] = {{1, 255, 1000},  {6, 255, 6000}, {11, 0, 1000},
                 {11, 255, 2000}, {51, 0, 5000},  {24, 255, 6000}};
    for (const auto& c : cases) {
        KdxChain chain;
        chain.setAnalog(c.analog);
        ask(chain, "C,S1M-" + std::to_string(c.range) + ",I1M0,R");
        chain.advanceMs(500);
        const long a = chain.position(1);
        chain.advanceMs(1000);
        EXPECT_NEAR(static_cast<double>(chain.position(1) - a), c.speed, 2) << c.range;
    }
}

TEST(SimMotion, JogRunsToTheLimitAndStopsThere) {
    KdxChain chain = chainWith("travel=300");
    ask(chain, "H1M-1000,");
    EXPECT_EQ(ask(chain, "V"), "b");
    chain.advanceMs(1000);
    EXPECT_EQ(chain.position(1), -300);
    EXPECT_EQ(ask(chain, "V"), "R");

    ask(chain, "H2MA6,"); // analog range 6 at mid input
    chain.advanceMs(20);
    EXPECT_GT(chain.position(2), 0);
    ask(chain, "K");
    const long stopped = chain.position(2);
    chain.advanceMs(100);
    EXPECT_EQ(chain.position(2), stopped);

    chain.setJogButton(1, LimitSide::Plus, true);
    EXPECT_EQ(ask(chain, "V"), "b");
    chain.advanceMs(200);
    chain.setJogButton(1, LimitSide::Plus, false);
    chain.advanceMs(100);
    EXPECT_EQ(ask(chain, "V"), "R");
    EXPECT_NEAR(static_cast<double>(chain.position(1)), -300 + 200, 15);
}

TEST(SimMotion, ZeroingMakesThePresentPlaceAbsoluteZero) {
    KdxChain chain;
    ask(chain, "C,S1M1000,I1M250,R");
    runToEnd(chain, 2000);
    ask(chain, "C,IA1M-0,R");
    EXPECT_EQ(ask(chain, "X1,"), "0\r");
    ask(chain, "C,IA1M-100,R");
    runToEnd(chain, 2000);
    EXPECT_EQ(ask(chain, "X1,"), "-100\r");
    ask(chain, "C,IA1M0,R");
    runToEnd(chain, 2000);
    EXPECT_EQ(ask(chain, "X1,"), "0\r");
}

TEST(SimMotion, PowerUpRunsProgram4WhenTheModeWordAsks) {
    KdxChain chain;
    ask(chain, "PM-4,U5,PM-0,setDM129,rsm");
    chain.powerCycle();
    EXPECT_EQ(chain.outputMask(), 1);
    ask(chain, "setDM1,rsm");
    chain.powerCycle();
    EXPECT_EQ(chain.outputMask(), 0);
}

// The "?" bits of axis 1 (bit 0 minus, bit 1 plus; 0 is active) as the limit setting's sign
// meets the switches wired: a mismatch reads the switch backwards.
TEST(SimMotion, LimitSettingPolarityMeetsTheSwitchesWired) {
    struct Case {
        const char* options;
        const char* setting;
        bool plusPressed;
        int bits;
    } cases[] = {
        {"switches=nc", "1", false, 3},  {"switches=nc", "1", true, 1},
        {"switches=nc", "0", true, 1},   {"switches=no", "0", true, 1},
        {"switches=nc", "-1", false, 0}, {"switches=nc", "-1", true, 2},
        {"switches=no", "-1", true, 1},  {"switches=no", "-2", false, 3},
        {"switches=no", "1", false, 0},  {"switches=no", "2", true, 2},
        {"nolimits=1", "1", true, 0},    {"nolimits=1", "-1", true, 3},
        {"nolimits=1", "0", false, 3},
    };
    for (const auto& c : cases) {
        KdxChain chain = chainWith(c.options);
        ask(chain, std::string("setL1M") + c.setting + ",");
        chain.setLimit(1, LimitSide::Plus, c.plusPressed);
        EXPECT_EQ(static_cast<unsigned char>(ask(chain, "?")[0]) & 3, c.bits)
            << c.options << " setL1M" << c.setting << (c.plusPressed ? " pressed" : "");
    }
}

TEST(SimMotion, AMotorWillNotLeaveASwitchItReadsAsTripped) {
    KdxChain wrong = chainWith("switches=nc");
    ask(wrong, "setL1M-1,C,S1M1000,I1M100,R");
    runToEnd(wrong, 1000);
    EXPECT_EQ(wrong.position(1), 0);

    KdxChain right = chainWith("switches=no");
    ask(right, "setL1M-1,C,S1M1000,I1M100,R");
    runToEnd(right, 1000);
    EXPECT_EQ(right.position(1), 100);
}
