#include "driver/ReplyReader.h"

#include <gtest/gtest.h>

using korval::driver::ReplyKind;
using korval::driver::ReplyReader;

namespace {

std::string all256() {
    std::string bytes;
    for (int b = 0; b < 256; ++b) {
        bytes += static_cast<char>(b);
    }
    return bytes;
}

} // namespace

// What arrives while the driver holds the line, in pieces: the answer it reads, and what goes on
// to the program untouched.
TEST(ReplyReader, ReadsEachAnswerByItsFormAndPassesEveryOtherByteOn) {
    const struct {
        ReplyKind kind;
        const char* item;
        std::vector<std::string> pieces;
        bool complete;
        std::string reply;
        std::string passedOn;
    } cases[] = {
        {ReplyKind::Status, "V,", {"R"}, true, "R", ""},
        {ReplyKind::Status,
         "V,",
         {"\xCB", "B"},
         true,
         "\xCB"
         "B",
         ""},
        {ReplyKind::Status, "V,", {"\xCB"}, false, "\xCB", ""},
        {ReplyKind::Status, "V,", {"^b"}, true, "b", "^"},
        {ReplyKind::Status, "V,", {"J", "{?"}, true, "J", "{?"},
        {ReplyKind::Word, "X1,", {"-12", "00\r"}, true, "-1200\r", ""},
        {ReplyKind::Word, "getM3M,", {"J"}, true, "J", ""},
        {ReplyKind::Word,
         "getM3M,",
         {"\xCB"
          "B",
          std::string(1, '\0')},
         true,
         "\xCB"
         "B",
         std::string(1, '\0')},
        {ReplyKind::Word, "getM1M,", {"20", "^", "00\r^"}, true, "2000\r", "^^"},
        {ReplyKind::Word, "getM1M,", {"20"}, false, "20", ""},
        {ReplyKind::Stored, "setM1M3,rsm", {"\x7B", "^", "}"}, true, "", "\x7B}"},
        {ReplyKind::Stored,
         "setM3M3,rsm",
         {"\xCB", "B^"},
         true,
         "\xCB"
         "B",
         ""},
        {ReplyKind::Stored, "setM2M3,rsm", {"J", "7^"}, true, "J", "7"},
        {ReplyKind::Listing, "lst,", {"S1M500,I1M-0,", "LA5,\r"}, true, "S1M500,I1M-0,LA5,\r", ""},
        {ReplyKind::None, "F,", {"{\x7B\x7D"}, false, "", "{\x7B\x7D"},
        // With echo on the item comes back around the answer.
        {ReplyKind::Status, "V,", {"VR,"}, true, "R", ""},
        {ReplyKind::Word, "getM1M,", {"getM1", "M,3\r"}, true, "3\r", ""},
    };
    for (const auto& c : cases) {
        ReplyReader reader(c.kind, c.item);
        std::string passedOn;
        for (const auto& piece : c.pieces) {
            passedOn += reader.feed(piece);
        }
        EXPECT_EQ(reader.complete(), c.complete) << c.item << " " << c.pieces[0];
        EXPECT_EQ(reader.reply(), c.reply) << c.item << " " << c.pieces[0];
        EXPECT_EQ(passedOn, c.passedOn) << c.item << " " << c.pieces[0];
    }
}

TEST(ReplyReader, AfterItsAnswerEveryByteValueGoesOnUnchanged) {
    ReplyReader reader(ReplyKind::Status, "V,");
    const auto bytes = all256();
    EXPECT_EQ(reader.feed("R" + bytes), bytes);
    EXPECT_EQ(reader.reply(), "R");
}
