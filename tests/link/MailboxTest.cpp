#include "link/Mailbox.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using korval::Mailbox;

namespace {

void write(const KdxSink* sink, const std::string& text) {
    sink->write(sink->context, text.data(), static_cast<std::int32_t>(text.size()));
}

} // namespace

TEST(Mailbox, HandlersRunOnlyInDrainInArrivalOrderWithTheWholeText) {
    int wakes = 0;
    Mailbox mailbox([&] { ++wakes; });
    std::vector<std::string> seen;
    auto& buffer = mailbox.addBox(Mailbox::Mode::Append,
                                  [&](const std::string& t) { seen.push_back("buffer:" + t); });
    auto& report = mailbox.addBox(Mailbox::Mode::Replace,
                                  [&](const std::string& t) { seen.push_back("report:" + t); });
    write(buffer.sink(), "1.2");
    write(report.sink(), "B");
    write(buffer.sink(), "2\r");
    write(report.sink(), "R");
    EXPECT_TRUE(seen.empty()) << "nothing runs on the writing thread";
    EXPECT_EQ(wakes, 4);
    mailbox.drain();
    EXPECT_EQ(seen,
              (std::vector<std::string>{"buffer:1.2", "report:B", "buffer:1.22\r", "report:R"}));
    EXPECT_FALSE(mailbox.pending());
}

TEST(Mailbox, ALatestOnlyBoxSkipsTextsOverwrittenBeforeTheDrain) {
    Mailbox mailbox;
    std::vector<std::string> seen;
    auto& terminal = mailbox.addBox(Mailbox::Mode::ReplaceLatestOnly,
                                    [&](const std::string& t) { seen.push_back(t); });
    for (const char* t : {"a", "ab", "abc"}) {
        write(terminal.sink(), t);
    }
    mailbox.drain();
    EXPECT_EQ(seen, std::vector<std::string>{"abc"});
}

TEST(Mailbox, AHandlerThatDrainsAgainSeesEveryWriteOnce) {
    Mailbox mailbox;
    std::vector<std::string> seen;
    Mailbox::Box* box = nullptr;
    box = &mailbox.addBox(Mailbox::Mode::Replace, [&](const std::string& t) {
        seen.push_back(t);
        if (t == "^") {
            mailbox.drain(); // a handler that waits lets the next report in
        }
    });
    write(box->sink(), "^");
    write(box->sink(), "R");
    mailbox.drain();
    EXPECT_EQ(seen, (std::vector<std::string>{"^", "R"}));
}

TEST(Mailbox, SetTextRunsTheHandlerOnlyOnAChange) {
    Mailbox mailbox;
    int runs = 0;
    auto& box = mailbox.addBox(Mailbox::Mode::Replace, [&](const std::string&) { ++runs; });
    box.setText("x");
    box.setText("x");
    box.setText("");
    EXPECT_EQ(runs, 2);
}

TEST(Mailbox, WritesFromManyThreadsAllArrive) {
    Mailbox mailbox;
    auto& box = mailbox.addBox(Mailbox::Mode::Append);
    std::vector<std::thread> writers;
    for (int t = 0; t < 4; ++t) {
        writers.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                write(box.sink(), "x");
            }
        });
    }
    for (int i = 0; i < 50; ++i) {
        mailbox.drain(); // draining while the writers run
    }
    for (auto& w : writers) {
        w.join();
    }
    mailbox.drain();
    EXPECT_EQ(box.text().size(), 4000u);
}

TEST(Mailbox, AFullAppendBoxTakesNoMoreText) {
    Mailbox mailbox;
    auto& buffer = mailbox.addBox(Mailbox::Mode::Append, {}, 5);
    write(buffer.sink(), "abc");
    write(buffer.sink(), "defg");
    write(buffer.sink(), "h");
    mailbox.drain();
    EXPECT_EQ(buffer.text(), "abcde");
}
