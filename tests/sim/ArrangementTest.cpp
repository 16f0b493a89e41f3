#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

TEST(SimArrangement, EachChainAnswersGetMotorAsItsControllersAllow) {
    struct Case {
        const char* arrangement;
        std::string m1, m2, m3, m4;
    } cases[] = {
        {"1", "0\r", "J", Err + "B", Err + "B"}, {"2", "0\r", "0\r", Err + "B", Err + "B"},
        {"2+1", "0\r", "0\r", "0\r", "J"},       {"1+2", "0\r", "J", "0\r", "0\r"},
        {"1+1", "0\r", "J", "0\r", "J"},         {"2+2", "0\r", "0\r", "0\r", "0\r"},
    };
    for (const auto& c : cases) {
        KdxChain chain = chainWith(std::string("arrangement=") + c.arrangement);
        EXPECT_EQ(ask(chain, "getM1M,"), c.m1) << c.arrangement;
        EXPECT_EQ(ask(chain, "getM2M,"), c.m2) << c.arrangement;
        EXPECT_EQ(ask(chain, "getM3M,"), c.m3) << c.arrangement;
        EXPECT_EQ(ask(chain, "getM4M,"), c.m4) << c.arrangement;
        EXPECT_EQ(ask(chain, "V"), "R") << c.arrangement << ": a refusal is no error state";
    }
}

TEST(SimArrangement, AbsentAxesTakeNoSettingsNoMovesAndNoJogs) {
    KdxChain chain = chainWith("arrangement=2");
    EXPECT_EQ(ask(chain, "setM3M5,"), Err + "B");
    EXPECT_EQ(ask(chain, "X4,"), Err + "B");
    EXPECT_EQ(ask(chain, "C,I3M100,"), Err + "B");
    EXPECT_EQ(chain.freeMemory(0), 256);
    ask(chain, "H3M100,");
    EXPECT_EQ(ask(chain, "V"), "R");
    chain.setSilent(true);
    EXPECT_EQ(ask(chain, "V,getD0,"), "");
    chain.setSilent(false);
    EXPECT_EQ(ask(chain, "V,"), "R");
}
