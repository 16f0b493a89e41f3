#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

namespace {

// What the motor-count probe sees of axes 1..4: + a setting, - a refusal, ? no answer.
std::string probe(KdxChain& chain) {
    std::string seen;
    for (int m = 1; m <= 4; ++m) {
        const std::string reply = ask(chain, "getM" + std::to_string(m) + "M,");
        if (reply.empty()) {
            seen += '?';
        } else if (reply == "J" || reply == Err + "B") {
            seen += '-';
        } else if (reply.size() > 1 && reply.back() == '\r') {
            seen += '+';
        } else {
            seen += '!';
        }
    }
    return seen;
}

} // namespace

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

// Every row of the probe table in docs/protocol.md can be produced.
TEST(SimArrangement, ArrangementsAndSilentAxesGiveEveryProbePattern) {
    struct Case {
        const char* options;
        const char* seen;
    } cases[] = {
        {"arrangement=1", "+---"},
        {"arrangement=2", "++--"},
        {"arrangement=2+1", "+++-"},
        {"arrangement=2+2", "++++"},
        {"arrangement=1+1", "+-+-"},
        {"arrangement=1+2", "+-++"},
        {"arrangement=2,silent=2", "+?--"},
        {"arrangement=2+2,silent=234", "+???"},
        {"arrangement=2+1,silent=2", "+?+-"},
        {"arrangement=2+2,silent=2", "+?++"},
        {"arrangement=1+2,silent=4", "+-+?"},
        {"arrangement=2+2,silent=4", "+++?"},
        {"arrangement=2+2,silent=24", "+?+?"},
        {"arrangement=2,silent=1", "?+--"},
    };
    for (const auto& c : cases) {
        KdxChain chain = chainWith(c.options);
        EXPECT_EQ(probe(chain), c.seen) << c.options;
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
