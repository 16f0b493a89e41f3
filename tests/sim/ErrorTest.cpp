#include <functional>

#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

namespace {

std::string manySpeeds(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "S1M5,";
    }
    return text;
}

} // namespace

// Each error by its real cause: the stream code written once, the status until K.
TEST(SimErrors, EachConditionRaisesItsCodeAndHoldsUntilKill) {
    struct Case {
        const char* name;
        const char* options;
        std::function<void(KdxChain&)> cause;
        std::string stream;
        std::string status;
    } cases[] = {
        {"memory full", "", [](KdxChain& c) { c.receive("C," + manySpeeds(70)); }, Err + "M",
         Err + "M"},
        {"nested loop", "", [](KdxChain& c) { c.receive("C,LM0,I1M5,LA2,I1M5,LA3,"); }, Err + "M",
         Err + "N"},
        {"endless after endless", "", [](KdxChain& c) { c.receive("C,I1M5,L0,L0,"); }, Err + "M",
         Err + "N"},
        {"motor 0", "", [](KdxChain& c) { c.receive("C,I0M5,"); }, Err + "M", Err + "I"},
        {"motor 9", "", [](KdxChain& c) { c.receive("C,S9M100,"); }, Err + "M", Err + "I"},
        {"continuous index", "nolimits=1", [](KdxChain& c) { c.receive("setL1M-1,C,I1M0,R"); },
         Err + "C", Err + "C"},
        {"stop button", "",
         [](KdxChain& c) {
             c.receive("C,S1M100,I1M5000,R");
             c.advanceMs(100);
             c.pressStopButton();
         },
         Err + "S", Err + "S"},
        {"stop on input 4", "",
         [](KdxChain& c) {
             c.receive("C,S1M100,I1M5000,R");
             c.setInput(4, true);
         },
         Err + "S", Err + "S"},
        {"jump and return", "",
         [](KdxChain& c) {
             c.receive("setI7,PM3,C,U90,PM0,C,U5,PM3,R");
             c.setInput(3, true);
         },
         Err + "J", Err + "J"},
        {"an injected one", "", [](KdxChain& c) { c.injectError('B'); }, Err + "B", Err + "B"},
    };
    for (const auto& c : cases) {
        KdxChain chain = chainWith(c.options);
        c.cause(chain);
        EXPECT_EQ(chain.takeOutput(), c.stream) << c.name;
        EXPECT_EQ(ask(chain, "V"), c.status) << c.name;
        EXPECT_FALSE(chain.running()) << c.name;
        chain.advanceMs(100);
        EXPECT_EQ(ask(chain, "V,"), c.status) << c.name << ": the error holds";
        ask(chain, "K");
        EXPECT_EQ(ask(chain, "V"), "R") << c.name;
    }
}

TEST(SimErrors, BadValuesInProgramCommandsReportMemoryCodeWithoutHoldingIt) {
    const char* bad[] = {"S1M6001,", "S1M-7,", "S1M-16,", "P0,",
                         "P65536,",  "LA0,",   "U77,",    "I1M99999999,"};
    for (const char* b : bad) {
        KdxChain chain;
        EXPECT_EQ(ask(chain, std::string("C,") + b), Err + "M") << b;
        EXPECT_EQ(ask(chain, "V"), "R") << b;
        EXPECT_EQ(chain.freeMemory(0), 256) << b;
    }
}

TEST(SimErrors, StopButtonWithoutAProgramStillReportsAndKillClearsIt) {
    KdxChain chain;
    chain.pressStopButton();
    EXPECT_EQ(chain.takeOutput(), Err + "S");
    ask(chain, "C,U5,R");
    EXPECT_EQ(chain.outputMask(), 0); // nothing runs in an error
    ask(chain, "K,R");
    EXPECT_EQ(chain.outputMask(), 1);
}

TEST(SimErrors, InputThreeJumpsToProgramThreeFromAnotherProgram) {
    KdxChain chain;
    ask(chain, "setI7,PM3,C,U15,PM0,C,U90,U5,R");
    EXPECT_TRUE(chain.running());
    chain.setInput(3, true);
    EXPECT_EQ(chain.outputMask(), 2); // program 3 ran, program 0 did not go on
    EXPECT_EQ(chain.takeOutput(), "^");
}

TEST(SimErrors, OverTravelReportsAndStopsWhenAMoveHitsASwitch) {
    KdxChain chain = chainWith("travel=100,overtravel=3");
    ask(chain, "C,S1M1000,I1M500,U5,R");
    chain.advanceMs(500);
    EXPECT_EQ(chain.position(1), 100);
    EXPECT_EQ(chain.takeOutput(), "O^");
    EXPECT_EQ(chain.outputMask(), 0);
}
