#include "diagnostics/CommandLanguage.h"

#include <gtest/gtest.h>

using namespace korval;

TEST(CommandLanguage, WordAndMaskReplies) {
    const struct {
        const char* reply;
        double word;
    } words[] = {{"1.22\r", 1.22}, {"", 0}, {"\r", 0}, {"12abc\r", 12}, {"1\r2\r", 12}};
    for (const auto& w : words) {
        EXPECT_DOUBLE_EQ(kdx::ReadWord(w.reply), w.word) << w.reply;
    }
    EXPECT_EQ(kdx::ReadMask(""), std::nullopt) << "no code: the bits are unknown";
    EXPECT_EQ(kdx::ReadMask("\xFF"), 255) << "read as a byte, never negative";
    EXPECT_EQ(kdx::ReadMask("7\r"), int{'7'}) << "by the code, not by numeric conversion";
    EXPECT_EQ(kdx::ReadMask(std::string_view("\0", 1)), 0);
}

TEST(CommandLanguage, WordsBecomeBitsLowFirst) {
    EXPECT_EQ(kdx::WordBits(0), "00000000");
    EXPECT_EQ(kdx::WordBits(129), "10000001");
    EXPECT_EQ(kdx::WordBits(6), "01100000");
    EXPECT_EQ(kdx::WordBits(256), "000000001") << "more than eight digits";
    EXPECT_EQ(kdx::WordBits(kdx::ReadWord("-6\r")), "01100000-") << "the sign stays behind";
    EXPECT_EQ(kdx::WordBits(kdx::ReadWord("9000000000000005\r")).substr(0, 8), "10100000")
        << "a very large word keeps its bits";
    EXPECT_EQ(kdx::WordBits(kdx::ReadWord("1e20\r")).size(), 67u);
}

TEST(CommandLanguage, MotorCountFromTheThirdMotorQuery) {
    const struct {
        const char* reply;
        int code;
    } cases[] = {
        {"", 0},
        {"\r", 0},
        {"getM3M,\r", 0},
        {"\xCB"
         "B",
         1},
        {"\xCB"
         "B\r",
         1},
        {"J", 1},
        {"getM3M,J\r", 1},
        {"2000\r", 2},
        {"getM3M,2000\r", 2},
        {"B", 2},
        {"JJ", 2},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(kdx::CountCodeFromReply(c.reply), c.code) << c.reply;
    }
}

TEST(CommandLanguage, ListingLaidOutForATextBox) {
    EXPECT_EQ(kdx::ListingForDisplay("C,;Mclear\rS1M20,;Mspeed\rR;run\r"),
              "C,;Mclear\r\nS1M20,\t\t;Mspeed\r\nR\t\t;run\r\n")
        << "only the first gap before \";M\" is closed";
    EXPECT_EQ(kdx::ListingForDisplay(""), "");
}
