#include "driver/FrameSplitter.h"

#include <gtest/gtest.h>

using korval::driver::FrameSplitter;

TEST(FrameSplitter, TakesFramesOutOfTheStreamEvenWhenSplitAcrossReads) {
    const struct {
        std::vector<std::string> reads;
        std::string stream;
        std::vector<std::string> frames;
    } cases[] = {
        {{"1.22\r"}, "1.22\r", {}},
        {{"{R}"}, "", {"R"}},
        {{"^{R}2000\r"}, "^2000\r", {"R"}},
        {{"ab{", "\xCB", "B}cd"},
         "abcd",
         {"\xCB"
          "B"}},
        {{"{}{2\r}"}, "", {"", "2\r"}},
        {{"x}y"}, "x}y", {}},
    };
    for (const auto& c : cases) {
        FrameSplitter splitter;
        std::string stream;
        std::vector<std::string> frames;
        for (const auto& read : c.reads) {
            auto out = splitter.feed(read);
            stream += out.stream;
            frames.insert(frames.end(), out.frames.begin(), out.frames.end());
        }
        EXPECT_EQ(stream, c.stream);
        EXPECT_EQ(frames, c.frames);
    }
}

TEST(FrameSplitter, AnOpeningBraceThatNeverClosesIsBoundedAndPassedOn) {
    FrameSplitter splitter;
    const std::string noise(FrameSplitter::MaxFrame + 10, 'z');
    const auto out = splitter.feed("{" + noise);
    EXPECT_TRUE(out.frames.empty());
    EXPECT_EQ(out.stream, "{" + noise) << "nothing is lost";
    EXPECT_EQ(splitter.feed("{R}").frames, std::vector<std::string>{"R"}) << "and it recovers";
}
