#include "link/StatusDisplay.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <deque>
#include <vector>

using namespace korval;

namespace {

struct Panel : StatusPanel, WaitContext {
    std::string caption = "Verifying Status";
    bool power = false;
    bool online = false;
    std::vector<std::string> log; // "@t what"
    Clock::time_point t{};
    std::deque<std::string> words; // what VerifyStatus reads next
    StatusDisplay* display = nullptr;
    int depth = 0;
    int maxDepth = 0;

    std::string at() const {
        char buf[32];
        std::snprintf(buf, sizeof buf, "@%.2f ",
                      std::chrono::duration<double>(t.time_since_epoch()).count());
        return buf;
    }
    std::string Caption() const override { return caption; }
    void SetCaption(const std::string& text) override { caption = text; }
    void SetLamps(bool p, bool o) override {
        power = p;
        online = o;
        log.push_back(at() + (p ? "G" : "g") + (o ? "Y" : "y"));
    }
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override { t += budget; }

    void kill() { log.push_back(at() + "KillProgram"); }
    void verify() {
        log.push_back(at() + "VerifyStatus");
        if (words.empty()) {
            return;
        }
        const auto word = words.front();
        words.pop_front();
        ++depth;
        maxDepth = std::max(maxDepth, depth);
        display->OnKdxChanged(word);
        --depth;
    }
};

struct DisplayFixture : ::testing::Test {
    Panel panel;
    ClsTimeDelay delay{panel};
    StatusDisplay display{panel, delay, [this] { panel.kill(); }, [this] { panel.verify(); }};
    DisplayFixture() { panel.display = &display; }
    std::size_t count(const std::string& suffix) const {
        return static_cast<std::size_t>(
            std::count_if(panel.log.begin(), panel.log.end(),
                          [&](const auto& l) { return l.ends_with(suffix); }));
    }
};

} // namespace

// Codes and words that only set the caption and the lamps, or the caption alone, or nothing.
TEST_F(DisplayFixture, SteadyCodesAndWordsSetTheCaptionAndTheLampsOrLeaveThem) {
    const struct {
        bool report;
        const char* text;
        const char* caption;
        const char* lamps; // "GY": power and on-line lit, lower case: dim; "": not touched
    } cases[] = {
        {true, "b", "JOGGING", "Gy"},
        {true, "\xCBS", "STOP PUSHED", "GY"}, // the report's caption is not the word's
        {true, "ERRORCOMMUNICATIONS", "ERRORCOMMUNICATIONS", "gy"},
        {false, "OFFLINEBUSY", "OFFLINEBUSY", "Gy"},
        {false, "ERRORSTOPBUTTON", "ERRORSTOPBUTTON", "GY"},
        {true, "\xCBU", "ERRORBUFFEROVERFLOW", ""},
        {false, "ERRORINVALIDMOTORNUMBER", "ERRORINVALIDMOTORNUMBER", ""},
        {true, "r", "before", ""},
        {false, "ERRORCOMMUNICATIONS", "before", ""},
        {false, "nonsense", "before", ""},
    };
    for (const auto& c : cases) {
        panel.caption = "before";
        panel.log.clear();
        c.report ? display.OnReport(c.text) : display.OnKdxChanged(c.text);
        EXPECT_EQ(panel.caption, c.caption) << c.text;
        EXPECT_EQ(panel.log, *c.lamps == '\0'
                                 ? std::vector<std::string>{}
                                 : std::vector<std::string>{std::string("@0.00 ") + c.lamps})
            << c.text;
    }
}

TEST_F(DisplayFixture, MemoryFullFlashesTwiceThenAsksAgain) {
    display.OnReport("\xCBM");
    EXPECT_EQ(panel.caption, "ERRORMEMORYFULL") << "the code always means memory full";
    EXPECT_EQ(panel.log, (std::vector<std::string>{"@0.00 GY", "@0.10 gy", "@0.10 GY", "@0.20 gy",
                                                   "@0.30 VerifyStatus"}));
}

TEST_F(DisplayFixture, LongFlashesRunTenRoundsAndASecondBeforeAskingAgain) {
    for (const char* code : {"\xCBJ", "\xCB"
                                      "C"}) {
        panel.t = {};
        panel.log.clear();
        display.OnReport(code);
        EXPECT_EQ(count("GY"), 10u);
        EXPECT_EQ(count("gy"), 10u);
        EXPECT_EQ(panel.log.back(), "@3.00 VerifyStatus");
    }
    EXPECT_EQ(panel.caption, "ERRORCONTINUOUSINDEX");
    for (const char* word : {"ERRORNESTEDLOOP", "ERRORJUMPANDRETURN", "ERRORCONTINUOUSINDEX"}) {
        panel.t = {};
        panel.log.clear();
        display.OnKdxChanged(word);
        EXPECT_EQ(panel.caption, word);
        EXPECT_EQ(panel.log.back(), "@3.00 VerifyStatus");
    }
}

TEST_F(DisplayFixture, ABusErrorFlashesTenTimesFirstAndOnceWhenAlreadyShown) {
    display.OnReport("\xCB"
                     "B");
    EXPECT_EQ(panel.caption, "ERRORBUSS");
    EXPECT_EQ(count("Gy"), 11u) << "ten rounds and the end";
    EXPECT_EQ(panel.log[panel.log.size() - 2], "@2.10 Gy");
    EXPECT_EQ(panel.log.back(), "@2.10 KillProgram");
    EXPECT_EQ(panel.t.time_since_epoch(), std::chrono::milliseconds(3100)) << "a second after";

    panel.t = {};
    panel.log.clear();
    display.OnReport("\xCB"
                     "B");
    EXPECT_EQ(panel.log, (std::vector<std::string>{"@0.00 GY", "@0.25 gy", "@0.50 KillProgram"}));

    panel.t = {};
    panel.log.clear();
    display.OnKdxChanged("ERRORBUSS");
    EXPECT_EQ(panel.log, (std::vector<std::string>{"@0.00 GY", "@0.25 gy", "@0.50 VerifyStatus"}));

    panel.caption = "ONLINEREADY";
    panel.t = {};
    panel.log.clear();
    display.OnKdxChanged("ERRORBUSS");
    EXPECT_EQ(panel.log.back(), "@3.10 VerifyStatus") << "the pause comes before asking";
}

TEST_F(DisplayFixture, AnErrorThatStaysKeepsBlinkingUntilASteadyWordWithoutNesting) {
    panel.words.assign(50, "ERRORMEMORYFULL");
    panel.words.push_back("ONLINEREADY");
    display.OnReport("\xCBM");
    EXPECT_EQ(count("VerifyStatus"), 51u);
    EXPECT_EQ(count("GY"), 2u + 50u * 2u + 1u) << "a blink of two for every error word";
    EXPECT_EQ(panel.caption, "ONLINEREADY");
    EXPECT_TRUE(panel.power && panel.online);
    EXPECT_EQ(panel.maxDepth, 2) << "fifty rounds of blinking nest no deeper than one";
}

TEST_F(DisplayFixture, AReportEndingARunAsksForTheStatus) {
    panel.words = {"BUSY"};
    display.OnReport("^");
    EXPECT_EQ(panel.caption, "BUSY");
    EXPECT_EQ(panel.log.front(), "@0.00 VerifyStatus");
}
