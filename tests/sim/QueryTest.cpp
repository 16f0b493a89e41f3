#include <gtest/gtest.h>

#include "sim/SimTestSupport.h"

using namespace korval::sim;
using korval::sim::test::ask;
using korval::sim::test::chainWith;
using korval::sim::test::Err;

TEST(SimQuery, WordQueriesAnswerDecimalTextAndCarriageReturn) {
    struct Case {
        const char* query;
        const char* reply;
    } cases[] = {
        {"getD0,", "1.22\r"},  {"getD1,", "03/14/2005\r"},
        {"getD2,", "2\r"},     {"getDM,", "1\r"},
        {"getI,", "3\r"},      {"getDA,", "5\r"},
        {"getPA,", "10\r"},    {"getP1M,", "1\r"},
        {"getM2M,", "0\r"},    {"getL1M,", "1\r"},
        {"getj1M,", "1000\r"}, {"getJ2M,", "2000\r"},
        {"getjA1M,", "0\r"},   {"getJA2M,", "0\r"},
        {"PM,", "0\r"},        {"PM\r", "0\r"},
        {"PMA,", "0\r"},       {"O,", "0\r"},
        {"@", "128\r"},        {"N,", "256\r"},
        {"X1,", "0\r"},        {"V", "R"},
    };
    for (const auto& c : cases) {
        KdxChain chain;
        EXPECT_EQ(ask(chain, c.query), c.reply) << c.query;
    }
}
