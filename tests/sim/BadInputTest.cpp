#include <random>

#include <gtest/gtest.h>

#include "sim/SimControl.h"
#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

// After each kind of bad input the controller still answers a plain query.
TEST(SimBadInput, TheControllerKeepsWorkingAfterAnythingTheHostSends) {
    std::mt19937 random(7);
    std::string garbage(20000, '\0');
    for (auto& c : garbage) {
        c = static_cast<char>(random() & 0xFF);
    }
    struct Case {
        const char* name;
        std::string text;
    } cases[] = {
        {"a line of 100,000 characters", std::string(100000, 'S')},
        {"a long number", "I1M" + std::string(100000, '9') + ","},
        {"an unclosed bracket", "C,(S1M100,I1M10,R"},
        {"garbage bytes", garbage},
        {"an unknown word", "frobnicate,"},
        {"motor 0 and motor 9", "getM0M,getM9M,X0,X9,H0M100,H9M100,setM9M1,"},
        {"only separators", std::string(100000, ',')},
        {"an unended comment", ";" + std::string(100000, 'x')},
        {"frame markers", "{}#{#}##,#"},
    };
    for (const auto& c : cases) {
        KdxChain chain;
        chain.receive(c.text);
        chain.advanceMs(100);
        EXPECT_LE(chain.takeOutput().size(), KdxChain::MaxOutput) << c.name;
        chain.receive("\rK,F,");
        chain.advanceMs(10);
        EXPECT_EQ(ask(chain, "getD0,"), "1.22\r") << c.name;
        EXPECT_EQ(ask(chain, "V"), "R") << c.name;
    }
}

TEST(SimBadInput, AnUnreadStreamStopsGrowingAtItsLimit) {
    KdxChain chain = chainWith("echo=on");
    for (int i = 0; i < 200; ++i) {
        chain.receive(std::string(1000, 'V'));
    }
    EXPECT_LE(chain.takeOutput().size(), KdxChain::MaxOutput);
    EXPECT_EQ(ask(chain, "F"), "F");
    EXPECT_EQ(ask(chain, "V"), "R");
}

TEST(SimOptions, OptionTextSetsEachChoiceAndRefusesBadOnes) {
    SimOptions o;
    std::string error;
    ASSERT_TRUE(
        ParseSimOptions("arrangement=2+2,firmware=1.21,baud=19200,echo=on,silent=34,"
                        "nolimits=1,travel=500,overtravel=2,analog=9,mode=4,date=x,switches=no",
                        o, error))
        << error;
    EXPECT_EQ(o.arrangement, "2+2");
    EXPECT_EQ(o.firmware, "1.21");
    EXPECT_EQ(o.baud, 19200);
    EXPECT_TRUE(o.echo);
    EXPECT_EQ(o.silentAxes, 0b1100);
    EXPECT_EQ(o.unwiredLimits, 1);
    EXPECT_EQ(o.travel, 500);
    EXPECT_EQ(o.overTravel, 2);
    EXPECT_EQ(o.analog, 9);
    EXPECT_EQ(o.mode, 4);
    EXPECT_EQ(o.date, "x");
    EXPECT_TRUE(o.normallyOpen);

    const char* bad[] = {
        "arrangement=3", "arrangement=2+", "baud=9601", "baud=",     "silent=5",  "travel=0",
        "travel=-5",     "analog=256",     "echo=yes",  "color=red", "firmware=", "mode=x"};
    for (const char* b : bad) {
        SimOptions kept;
        kept.baud = 38400;
        EXPECT_FALSE(ParseSimOptions(b, kept, error)) << b;
        EXPECT_NE(error.find(b), std::string::npos) << b;
        EXPECT_EQ(kept.baud, 38400) << b << ": a refused text changes nothing";
    }
    SimOptions empty;
    EXPECT_TRUE(ParseSimOptions("", empty, error));
    EXPECT_EQ(empty.arrangement, "2");
    EXPECT_EQ(empty.baud, 9600);
}

TEST(SimControl, ControlLinesWorkTheBench) {
    KdxChain chain;
    std::string answer;
    struct Case {
        const char* line;
        ControlResult result;
    } cases[] = {
        {"limit 1 + on", ControlResult::Done},  {"jog 2 - press", ControlResult::Done},
        {"input 1 on", ControlResult::Done},    {"analog 42", ControlResult::Done},
        {"silent-axes 4", ControlResult::Done}, {"", ControlResult::Done},
        {"limit 5 + on", ControlResult::Bad},   {"limit 1 x on", ControlResult::Bad},
        {"analog 256", ControlResult::Bad},     {"error Z", ControlResult::Bad},
        {"input 1", ControlResult::Bad},        {"dance", ControlResult::Bad},
        {"hangup", ControlResult::HangUp},      {"quit", ControlResult::Quit},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ApplyControl(chain, c.line, answer), c.result) << c.line;
    }
    EXPECT_EQ(static_cast<unsigned char>(ask(chain, "?")[0]), 0xFD);
    EXPECT_EQ(static_cast<unsigned char>(ask(chain, "~")[0]), 0xFF & ~0x04 & ~0x10);
    EXPECT_EQ(ask(chain, "@"), "42\r");
    EXPECT_EQ(ask(chain, "getM3M,"), Err + "B"); // arrangement 2 has no axis 3 ...
    EXPECT_EQ(ask(chain, "getM4M,"), "");        // ... and axis 4 is silent
    ApplyControl(chain, "silent-axes 1", answer);
    EXPECT_EQ(ask(chain, "getM1M,"), "");
    EXPECT_EQ(ask(chain, "getM4M,"), Err + "B");
    EXPECT_EQ(ApplyControl(chain, "error F", answer), ControlResult::Done);
    EXPECT_EQ(ask(chain, "V"), Err + "F");
    ApplyControl(chain, "silent on", answer);
    EXPECT_EQ(ask(chain, "V"), "");
    ApplyControl(chain, "silent off", answer);
    ApplyControl(chain, "show", answer);
    EXPECT_EQ(answer.rfind("status EF program 0", 0), 0u) << answer;
}
