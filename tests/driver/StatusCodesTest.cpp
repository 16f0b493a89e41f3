#include "driver/StatusCodes.h"

#include <gtest/gtest.h>

using namespace korval::driver;

TEST(StatusCodes, EveryCodeHasItsWordAndItsReport) {
    const struct {
        const char* code;
        const char* word;
        const char* report;
    } cases[] = {
        {"R", "ONLINEREADY", "R"},
        {"J", "OFFLINEREADY", "J"},
        {"B", "BUSY", "B"},
        {"L", "OFFLINEBUSY", ""},
        {"b", "JOGGING", "b"},
        {"\xCBS", "ERRORSTOPBUTTON", "\xCBS"},
        {"\xCB"
         "B",
         "ERRORBUSS",
         "\xCB"
         "B"},
        {"\xCBM", "ERRORMEMORYFULL", "\xCBM"},
        {"\xCBN", "ERRORNESTEDLOOP", "\xCBM"},
        {"\xCBJ", "ERRORJUMPANDRETURN", "\xCBJ"},
        {"\xCB"
         "C",
         "ERRORCONTINUOUSINDEX",
         "\xCB"
         "C"},
        {"\xCB"
         "F",
         "ERRORFLASHROM",
         "\xCB"
         "F"},
        {"\xCB"
         "E",
         "ERROREEPROM",
         "\xCB"
         "E"},
        {"\xCBI", "ERRORINVALIDMOTORNUMBER", "\xCBM"},
        {"\xCBU", "ERRORBUFFEROVERFLOW", "\xCBU"},
        {"", "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
        {"r", "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS"},
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
    EXPECT_EQ(classifyAxis(std::string("\xCB"
                                       "B")),
              AxisAnswer::NotThere);
    EXPECT_EQ(classifyAxis(std::string("J\r")), AxisAnswer::NotThere);
    EXPECT_EQ(classifyAxis(std::string("\r")), AxisAnswer::InDoubt);
    EXPECT_EQ(classifyAxis(std::nullopt), AxisAnswer::InDoubt);
    EXPECT_EQ(possibleMotors(std::string("2000\r"), true), 4);
    EXPECT_EQ(possibleMotors(std::string("J"), true), 2);
    EXPECT_EQ(possibleMotors(std::nullopt, true), 4) << "a silent axis 3 may still be there";
    EXPECT_EQ(possibleMotors(std::nullopt, false), 0);
}
