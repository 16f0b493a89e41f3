#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

TEST(SimSettings, SettingsReadBackAtOnceAndSurvivePowerOnlyThroughRsm) {
    struct Case {
        const char* set;
        const char* get;
        const char* value;
    } cases[] = {
        {"setDM129,", "getDM,", "129\r"},
        {"setL2M-2,", "getL2M,", "-2\r"},
        {"setjA1M5,", "getjA1M,", "5\r"}, // not read as setj with a word after it
    };
    for (const auto& c : cases) {
        KdxChain lost;
        const std::string before = ask(lost, c.get);
        ask(lost, std::string("C,") + c.set);
        EXPECT_EQ(ask(lost, c.get), c.value) << c.set;
        lost.powerCycle();
        EXPECT_EQ(ask(lost, c.get), before) << c.set << " without rsm";

        KdxChain kept;
        EXPECT_EQ(ask(kept, std::string("C,") + c.set + ",rsm"), "^");
        kept.powerCycle();
        EXPECT_EQ(ask(kept, c.get), c.value) << c.set << " after rsm";
    }
}

TEST(SimSettings, OutOfRangeSettingsAreDroppedAndTheOldValueStays) {
    const char* bad[] = {"setjA1M25,", "setj1M6001,", "setL1M3,",  "setL1M-3,", "setDM256,",
                         "setI9999,",  "setjA1M,",    "setjA1Mx,", "setM1M7,",  "setM1M-1,"};
    const char* read = "getjA1M,getj1M,getL1M,getDM,getI,getM1M,";
    for (const char* b : bad) {
        KdxChain chain;
        const std::string before = ask(chain, read);
        EXPECT_EQ(ask(chain, b), "") << b;
        EXPECT_EQ(ask(chain, read), before) << b;
    }
}

TEST(SimPrograms, ListingGivesTheStoredFormOneCommandPerItem) {
    KdxChain chain;
    ask(chain, "F,\t\t;KDX Online with Echo Off\rPM-0,\rS1M500,\rI1M-0,\rIA1M-0,\rIA1M400,\r"
               "LM0,\rP15,\rS1M2000,\rI1M1000,\rS1M2000,\rIA1M400,\rLA5,\r");
    EXPECT_EQ(ask(chain, "PM0,lst,"),
              "S1M500,I1M-0,IA1M-0,IA1M400,LM0,P15,S1M2000,I1M1000,S1M2000,IA1M400,LA5,\r");
    ask(chain, "PM2,C,(S1M100,I1M-5,S2M-11,I2M7),U90,U0,U5,U4,U15,U14,L0,");
    EXPECT_EQ(ask(chain, "PM,"), "2\r");
    EXPECT_EQ(ask(chain, "lst,"), "(,S1M100,I1M-5,S2M-11,I2M7,),U90,U0,U5,U4,U15,U14,L0,\r");
    // Listing another program selects it.
    EXPECT_EQ(ask(chain, "PM4,lst,"), "\r");
    EXPECT_EQ(ask(chain, "PM,"), "4\r");
}

TEST(SimPrograms, FreeMemoryStartsAt256AndFallsAsCommandsAreStored) {
    KdxChain chain;
    for (int p = 0; p < KdxChain::ProgramCount; ++p) {
        EXPECT_EQ(ask(chain, "PM" + std::to_string(p) + ",N,"), "256\r");
    }
    ask(chain, "PM1,S1M100,");
    const int afterOne = chain.freeMemory(1);
    EXPECT_LT(afterOne, 256);
    ask(chain, "I1M100,P5,U5,");
    EXPECT_LT(chain.freeMemory(1), afterOne);
    EXPECT_EQ(chain.freeMemory(0), 256); // programs keep apart
    ask(chain, "C,");
    EXPECT_EQ(ask(chain, "N,"), "256\r");
    ask(chain, "S1M100,PM-1,");
    EXPECT_EQ(chain.freeMemory(1), 256); // PM-{n} starts the program afresh
}

TEST(SimPrograms, MemoryRunsOutWithErrorAndKeepsWhatFitted) {
    KdxChain chain;
    std::string text = "C,";
    for (int i = 0; i < 100; ++i) {
        text += "I1M1,";
    }
    const std::string out = ask(chain, text);
    EXPECT_EQ(out, Err + "M");
    EXPECT_EQ(ask(chain, "V"), Err + "M");
    EXPECT_EQ(chain.freeMemory(0), 0);
    EXPECT_EQ(ask(chain, "R"), ""); // an error holds until K
    ask(chain, "K");
    EXPECT_EQ(ask(chain, "V"), "R");
    const std::string listing = ask(chain, "lst,");
    EXPECT_EQ(std::count(listing.begin(), listing.end(), ','), 64);
}

TEST(SimPrograms, AnEmptyProgramRunEndsAtOnce) {
    KdxChain chain;
    EXPECT_EQ(ask(chain, "C,R"), "^");
    EXPECT_FALSE(chain.running());
}
