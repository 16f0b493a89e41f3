#include "diagnostics/CommandLanguage.h"
#include "diagnostics/ReplyForm.h"

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

// What has come since a query counts as a whole reply only by its end mark.
TEST(CommandLanguage, EndMarksOfReplies) {
    const struct {
        ReplyForm form;
        const char* text;
        bool whole;
    } cases[] = {
        {ReplyForm::Word, "1.22\r", true},
        {ReplyForm::Word, "1.22", false},
        {ReplyForm::Word, "J", true},
        {ReplyForm::Word,
         "\xCB"
         "B",
         true},
        {ReplyForm::Word, "\xCB", false},
        {ReplyForm::Word, "\r\n", false},
        {ReplyForm::Mask, "\xFC", true},
        {ReplyForm::Mask, "", false},
        {ReplyForm::Listing, "S1M500,I1M-0,\r", true},
        {ReplyForm::Listing, "S1M500,", false},
        {ReplyForm::None, "anything\r", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(EndMarkCame(c.form, c.text), c.whole)
            << static_cast<int>(c.form) << " \"" << c.text << "\"";
    }
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
