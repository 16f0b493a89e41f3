#include "core/Numbers.h"
#include "core/ClsMathConversions.h"
#include "core/Currency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace korval;

TEST(Val, ReadsTheLeadingNumberAndStopsAtTheFirstOtherCharacter) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"", 0},
        {"abc", 0},
        {"1,000.0", 1},
        {"+12", 12},
        {"1+2", 1},
        {"  42", 42},
        {"\t-7.5x", -7.5},
        {"3.", 3},
        {".25", 0.25},
        {"-", 0},
        {"1e3", 1000},
        {"2D2", 200},
        {"1e", 1},
        {"1e+", 1},
        {"12 3", 12},
        {"16777216", 16777216},
        {"6000.5", 6000.5},
        {"- 5", 0},
        {"0x10", 0},
        {"1.5.5", 1.5},
        {"1e999", std::numeric_limits<double>::infinity()},
        {"1e-999", 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Val(c.text), c.value) << '"' << c.text << '"';
    }
}

TEST(Val, NumbersBeyondTheRangeSaturateWhateverTheirForm) {
    const double inf = std::numeric_limits<double>::infinity();
    const std::string digits(401, '9');
    const std::string zeros(401, '0');
    const struct {
        std::string text;
        double value;
    } cases[] = {
        {digits, inf},
        {"-" + digits, -inf},
        {digits + ".5e-10", inf},
        {"1" + zeros + "e-100", 1e301},
        {"0." + zeros + "1", 0},
        {"-0." + zeros + "1e10", 0},
        {"0.0001e99999999999999999999", inf},
        {"1" + zeros + "e-99999999999999999999", 0},
        {zeros + "7", 7},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(IsNumeric(c.text)) << c.text.substr(0, 12);
        EXPECT_EQ(Val(c.text), c.value) << c.text.substr(0, 12) << "... of " << c.text.size();
    }
}

TEST(IsNumeric, AcceptsOneWholeNumberWithBlanksAroundIt) {
    const struct {
        const char* text;
        bool numeric;
    } cases[] = {
        {"1,000.5", true}, {" 12 ", true},   {"1e3", true},  {"-0.5", true}, {"+3", true},
        {"abc", false},    {"", false},      {"   ", false}, {"1+2", false}, {"12 3", false},
        {",5", false},     {"1.2.3", false}, {"5x", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IsNumeric(c.text), c.numeric) << '"' << c.text << '"';
    }
}

TEST(Round, TakesHalvesToTheEvenNeighbour) {
    const struct {
        double in;
        double out;
    } cases[] = {{1000.5, 1000}, {1001.5, 1002}, {6000.5, 6000}, {2.5, 2}, {3.5, 4},
                 {-2.5, -2},     {-3.5, -4},     {2.4999, 2},    {0.5, 0}, {1.5000001, 2}};
    for (const auto& c : cases) {
        EXPECT_EQ(Round(c.in), c.out) << c.in;
    }
}

TEST(ToInt32, RefusesWhatDoesNotFit) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), -2147483648); // half to even stays in range
    EXPECT_FALSE(ToInt32(2147483647.5));
    EXPECT_FALSE(ToInt32(std::nan("")));
    EXPECT_FALSE(ToInt32(1e300));
}

TEST(NumberText, ShortestFormAndTheLeadingBlank) {
    const struct {
        double value;
        const char* text;
        const char* str;
    } cases[] = {
        {5, "5", " 5"},
        {-5, "-5", "-5"},
        {0, "0", " 0"},
        {-0.0, "0", " 0"},
        {0.1, "0.1", " 0.1"},
        {2.25, "2.25", " 2.25"},
        {1000000, "1000000", " 1000000"},
        {16777215, "16777215", " 16777215"},
        {1.0 / 3, "0.333333333333333", " 0.333333333333333"},
        {123456789012345, "123456789012345", " 123456789012345"},
        {1e15, "1E+15", " 1E+15"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NumToText(c.value), c.text);
        EXPECT_EQ(Str(c.value), c.str);
    }
    EXPECT_EQ("Setting: " + Str(5), "Setting:  5");
}

TEST(FormatGrouped, ThousandsCommasAndFixedDecimals) {
    const struct {
        double value;
        int decimals;
        const char* text;
    } cases[] = {
        {0, 1, "0.0"},
        {12345.25, 1, "12,345.3"},
        {-12345.25, 1, "-12,345.3"},
        {999.95, 1, "1,000.0"},
        {-0.04, 1, "0.0"},
        {1234567.5, 7, "1,234,567.5000000"},
        {0.0000123, 7, "0.0000123"},
        {0.00000005, 7, "0.0000001"},
        {100, 7, "100.0000000"},
        {0.125, 2, "0.13"},
        {999999.99, 1, "1,000,000.0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FormatGrouped(c.value, c.decimals), c.text) << c.value;
    }
}

TEST(Currency, KeepsFourDecimalsRoundingHalvesToEven) {
    const struct {
        double in;
        std::int64_t units;
        const char* text;
    } cases[] = {
        {0, 0, "0"},
        {2, 20000, "2"},
        {1.5, 15000, "1.5"},
        {0.0001, 1, "0.0001"},
        {-3.25, -32500, "-3.25"},
        {0.00005, 0, "0"},      // half of the last place goes to the even 0
        {0.00015, 2, "0.0002"}, // and here to the even 2
        {0.00025, 2, "0.0002"},
        {0.123456, 1235, "0.1235"},
        {-0.00004, 0, "0"},
    };
    for (const auto& c : cases) {
        const auto value = Currency::fromDouble(c.in);
        ASSERT_TRUE(value) << c.in;
        EXPECT_EQ(value->units(), c.units) << c.in;
        EXPECT_EQ(value->toText(), c.text) << c.in;
    }
    EXPECT_FALSE(Currency::fromDouble(1e16));
    EXPECT_FALSE(Currency::fromDouble(std::nan("")));
    EXPECT_EQ(Currency::fromUnits(std::numeric_limits<std::int64_t>::min()).toText(),
              "-922337203685477.5808");
}

TEST(NumToBin, PadsToTheWidthAndReadsLowBitFirstWhenReversed) {
    const struct {
        double value;
        int width;
        const char* bits;
        const char* lowFirst;
    } cases[] = {
        {0, 8, "00000000", "00000000"},
        {129, 8, "10000001", "10000001"},
        {1, 8, "00000001", "10000000"},
        {6, 8, "00000110", "01100000"},
        {255, 8, "11111111", "11111111"},
        {256, 8, "100000000", "000000001"},
        {5, 0, "101", "101"},
        {-3, 8, "-00000011", "11000000-"},
        {-256, 4, "-100000000", "000000001-"},
        {1e20, 8, "1010110101111000111010111100010110101100011000100000000000000000000",
         "0000000000000000000010001100011010110100011110101110001111010110101"},
        {-1e20, 0, "-1010110101111000111010111100010110101100011000100000000000000000000",
         "0000000000000000000010001100011010110100011110101110001111010110101-"},
        {5.5, 8, "00000110", "01100000"},
        {std::nan(""), 8, "00000000", "00000000"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ClsMathConversions::NumToBin(c.value, c.width), c.bits) << c.value;
        EXPECT_EQ(ClsMathConversions::BitsLowFirst(c.value, c.width), c.lowFirst) << c.value;
    }
}
