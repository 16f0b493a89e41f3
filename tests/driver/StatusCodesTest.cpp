#include "driver/StatusCodes.h"

#include "core/StatusLead.h"

#include <gtest/gtest.h>

using namespace korval::driver;
using korval::ErrorCode;
using korval::StatusLead;

// Where the report route differs from the status word: shared codes, silent codes, and
// anything the controller should never say.
TEST(StatusCodes, ReportsThatDifferFromTheirCode) {
    const struct {
        std::string code;
        const char* word;
        std::string report;
    } cases[] = {
        {ErrorCode('N'), "ERRORNESTEDLOOP", ErrorCode('M')},
        {ErrorCode('I'), "ERRORINVALIDMOTORNUMBER", ErrorCode('M')},
        {"L", "OFFLINEBUSY", ""},
        {"", "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
        {"r", "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
        {std::string(1, StatusLead), "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
        {ErrorCode('B') + "\r", "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(statusWord(c.code), c.word) << c.code;
        EXPECT_EQ(reportCode(c.code), c.report) << c.code;
    }
}

TEST(StatusCodes, TheProbeGivesEveryArrangementCode) {
    constexpr auto Y = AxisAnswer::There;
    constexpr auto N = AxisAnswer::NotThere;
    constexpr auto D = AxisAnswer::InDoubt;
    const struct {
        AxisAnswer axes[4];
        int code;
    } cases[] = {
        {{Y, N, N, N}, 1},   {{Y, Y, N, N}, 2},   {{Y, Y, Y, N}, 3},   {{Y, Y, Y, Y}, 4},
        {{Y, N, Y, N}, 11},  {{Y, N, Y, Y}, -3},  {{Y, D, N, N}, 0},   {{Y, D, D, D}, 0},
        {{Y, D, N, D}, 0},   {{Y, D, Y, N}, 101}, {{Y, D, Y, Y}, 102}, {{Y, N, Y, D}, 103},
        {{Y, Y, Y, D}, 104}, {{Y, D, Y, D}, 105}, {{D, D, D, D}, 64},  {{N, N, N, N}, 64},
        {{Y, Y, D, D}, 64},  {{Y, N, D, N}, 64},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(arrangementCode(c.axes), c.code);
    }
}

TEST(StatusCodes, AxisRepliesAndThePossibleCount) {
    EXPECT_EQ(classifyAxis(std::string("2000\r")), AxisAnswer::There);
    EXPECT_EQ(classifyAxis(ErrorCode('B')), AxisAnswer::NotThere);
    EXPECT_EQ(classifyAxis(std::string("J\r")), AxisAnswer::NotThere);
    EXPECT_EQ(classifyAxis(std::string("\r")), AxisAnswer::InDoubt);
    EXPECT_EQ(classifyAxis(std::nullopt), AxisAnswer::InDoubt);
    EXPECT_EQ(possibleMotors(std::string("2000\r"), true), 4);
    EXPECT_EQ(possibleMotors(std::string("J"), true), 2);
    EXPECT_EQ(possibleMotors(std::nullopt, true), 4) << "a silent axis 3 may still be there";
    EXPECT_EQ(possibleMotors(std::nullopt, false), 0);
}
