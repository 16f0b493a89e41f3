#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

// The power-up values the information panels' tests do not already show.
TEST(SimQuery, WordQueriesAnswerDecimalTextAndCarriageReturn) {
    struct Case {
        const char* query;
        const char* reply;
    } cases[] = {
        {"getD1,", "03/14/2005\r"},
        {"getDM,", "1\r"},
        {"PM\r", "0\r"},
        {"N,", "256\r"},
        {"X1,", "0\r"},
        {"V", "R"},
    };
    for (const auto& c : cases) {
        KdxChain chain;
        EXPECT_EQ(ask(chain, c.query), c.reply) << c.query;
    }
}

TEST(SimQuery, OutputMaskIsSilentBeforeFirmware122) {
    KdxChain old = chainWith("firmware=1.21");
    EXPECT_EQ(ask(old, "getD0,"), "1.21\r");
    EXPECT_EQ(ask(old, "$,"), "");
}

TEST(SimQuery, ModelChoicesShowInTheirQueries) {
    KdxChain chain = chainWith("date=01/02/2003,mode=4,overtravel=3,analog=200");
    EXPECT_EQ(ask(chain, "getD1,"), "01/02/2003\r");
    EXPECT_EQ(ask(chain, "getD2,"), "4\r");
    EXPECT_EQ(ask(chain, "O,"), "3\r");
    EXPECT_EQ(ask(chain, "@"), "200\r");
    chain.setAnalog(7);
    EXPECT_EQ(ask(chain, "@"), "7\r");
}

// The words the driver adds for its own needs answer like any query; a controller that knows
// only its language leaves them unanswered and still answers the language.
TEST(SimQuery, TheDriversOwnWordsAnswerPlainlyUnlessTheControllerKnowsOnlyItsLanguage) {
    struct Case {
        const char* sent;
        std::string reply, languageOnly;
    } cases[] = {
        {"V,", "R", ""},           {"X2,", "0\r", ""},
        {"N,", "256\r", ""},       {"PM,", "0\r", "0\r"},
        {"getM1M,", "0\r", "0\r"}, {"getM3M,", Err + "B", Err + "B"},
        {"rsm", "^", "^"},         {"F,", "", ""},
        {"setM1M5,", "", ""},
    };
    KdxChain chain;
    KdxChain language = chainWith("language-only=on");
    for (const auto& c : cases) {
        EXPECT_EQ(ask(chain, c.sent), c.reply) << c.sent;
        EXPECT_EQ(ask(language, c.sent), c.languageOnly) << c.sent;
    }
    ask(chain, "E");
    EXPECT_EQ(ask(chain, "V"), "VR");
    for (auto* c : {&chain, &language}) {
        ask(*c, "H1M1000,");
        c->advanceMs(100);
    }
    EXPECT_TRUE(chain.moving(1));
    EXPECT_FALSE(language.moving(1)) << "H is unknown to it";
}

TEST(SimQuery, EchoIsOnAfterEAndOffAfterFOrG) {
    KdxChain chain;
    EXPECT_EQ(ask(chain, "E"), "E");
    EXPECT_TRUE(chain.echo());
    EXPECT_EQ(ask(chain, "getD2,"), "getD2,2\r");
    EXPECT_EQ(ask(chain, "F"), "F");
    EXPECT_FALSE(chain.echo());
    EXPECT_EQ(ask(chain, "getD2,"), "2\r");
    ask(chain, "E");
    EXPECT_EQ(ask(chain, "G"), "G");
    EXPECT_FALSE(chain.echo());
    KdxChain echoing = chainWith("echo=on");
    EXPECT_EQ(ask(echoing, "V"), "VR");
    EXPECT_EQ(ask(echoing, "K,Q,F"), "K,Q,F");
    EXPECT_EQ(ask(echoing, "V"), "R");
}

TEST(SimQuery, StatusFollowsOnLineOffLineBusyAndJogging) {
    KdxChain chain;
    EXPECT_EQ(ask(chain, "V"), "R");
    ask(chain, "Q");
    EXPECT_EQ(ask(chain, "V"), "J");
    ask(chain, "C,S1M1000,I1M5000,R");
    EXPECT_EQ(ask(chain, "V"), "L");
    ask(chain, "F");
    EXPECT_EQ(ask(chain, "V"), "B");
    ask(chain, "K");
    EXPECT_EQ(ask(chain, "V"), "R");
    ask(chain, "H1M500,");
    EXPECT_EQ(ask(chain, "V"), "b");
    ask(chain, "D");
    chain.advanceMs(100);
    EXPECT_EQ(ask(chain, "V"), "R");
}

TEST(SimItems, ItemsEndWithoutTerminatorsWhereTheNextCharacterCannotContinueThem) {
    struct Case {
        const char* sent;
        const char* reply;
    } cases[] = {
        {"K,Q,F", ""},                         // the bare F acts: on line
        {"getD2\rgetD2,", "2\r2\r"},           // carriage return ends an item
        {"getD2,,,getD2,", "2\r2\r"},          // empty items are harmless
        {"get\tD2,", "2\r"},                   // tabs are ignored
        {"getD2;getD0, a comment\rV", "2\rR"}, // a comment runs to the line end
        {"X1V", "0\rR"},                       // V cannot continue X1
        {"PM3lst", "\r"},                      // lst ends at its last letter
        {"rsmV", "^R"},                        // so does rsm
        {"PM,PMA\r", "3\r3\r"},
    };
    KdxChain chain;
    for (const auto& c : cases) {
        EXPECT_EQ(ask(chain, c.sent), c.reply) << c.sent;
    }
    EXPECT_TRUE(chain.online());
}

TEST(SimItems, AnItemWithANumberIsStoredWhenTheRunArrives) {
    KdxChain chain;
    ask(chain, "C,S1M2000,,I1M400");
    EXPECT_EQ(chain.freeMemory(0), 256 - 4);
    ask(chain, "R");
    EXPECT_EQ(chain.freeMemory(0), 256 - 8);
    chain.advanceMs(1000);
    EXPECT_EQ(chain.position(1), 400);
    EXPECT_EQ(chain.takeOutput(), "^");
}
