#include "FakeController.h"

#include "diagnostics/TroubleshooterReading.h"

#include <algorithm>

using namespace korval;
using namespace korval::testing;

namespace {

using L = LampPicture;

struct TroubleFixture : DiagnosticFixture {
    std::string lamps(const TroubleshooterReading& r) {
        std::string out;
        for (int bit = 0; bit < 8; ++bit) {
            out += r.Lamp(bit) == L::Lit ? 'L' : r.Lamp(bit) == L::Dim ? 'd' : '?';
        }
        return out;
    }
    std::string labels(const TroubleshooterReading& r) {
        std::string out;
        for (int bit = 0; bit < 8; ++bit) {
            out += r.Label(bit).empty() ? "?" : r.Label(bit);
        }
        return out;
    }
};

} // namespace

TEST(TroubleshooterRules, RepliesGiveBitsLowFirstAfterTheEcho) {
    using K = TroubleshooterKind;
    const struct {
        K kind;
        std::string reply;
        std::optional<std::string> bits;
    } cases[] = {
        {K::Inputs, std::string(1, '\0'), "00000000"},
        {K::Inputs, "\x7B", "11011110"},
        {K::Inputs, "\xFF", "11111111"},
        {K::Inputs, "~~\xFE", "01111111"},
        {K::Inputs, "~", std::nullopt},
        {K::Inputs, "", std::nullopt},
        {K::Outputs, "$\x05", "10100000"},
        {K::Outputs, "$$", std::nullopt},
        {K::MultifunctionIO, "67\r", "11000010"},
        {K::MultifunctionIO, "getI", std::nullopt},
        {K::MultifunctionIO, "300\r", "001101001"}, // more than eight: only eight are painted
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BitsOfReply(c.kind, c.reply), c.bits) << static_cast<int>(c.kind) << c.reply;
    }
}

TEST_F(TroubleFixture, InputsReadWithoutPrologueAndEchoOnlyRepliesLeaveTheLamps) {
    TroubleshooterReading inputs(TroubleshooterKind::Inputs, driver, delay);
    EXPECT_EQ(lamps(inputs), "????????");
    const struct {
        const char* reply;
        TickOutcome outcome;
        const char* lamps;
        const char* labels;
    } ticks[] = {
        {"\xFF", TickOutcome::Read, "dddddddd", "11111111"},
        {"~\xEF", TickOutcome::Read, "ddddLddd", "11110111"}, // Input 1 on, behind an echo
        {"~", TickOutcome::NoReply, "ddddLddd", "11110111"},  // only the echo: nothing changes
        {"\xFF", TickOutcome::Read, "dddddddd", "11111111"},
    };
    for (const auto& t : ticks) {
        controller.replies["~"] = t.reply;
        EXPECT_EQ(inputs.Tick(), t.outcome) << t.reply;
        EXPECT_EQ(lamps(inputs), t.lamps) << t.reply;
        EXPECT_EQ(labels(inputs), t.labels) << t.reply;
    }
    EXPECT_EQ(sent(), std::vector<std::string>(4, "~")) << "no K,Q,F: a program goes on";
    EXPECT_EQ(std::count(controller.calls.begin(), controller.calls.end(), "clear"), 0);
    EXPECT_EQ(std::count(controller.calls.begin(), controller.calls.end(), "read+clear"), 4);
}

TEST_F(TroubleFixture, TheTimelineHoldsEachChangeAfterTheFirstReading) {
    TroubleshooterReading inputs(TroubleshooterKind::Inputs, driver, delay);
    inputs.Restart();
    for (const char* reply : {"\xFF", "\xFF", "\xEF", "\xFF", "\xFB"}) {
        controller.replies["~"] = reply;
        inputs.Tick();
        delay.TimeDelay(0.15);
    }
    const std::vector<BitChange> expected = {
        {0.6, 4, '1', '0'}, {0.85, 4, '0', '1'}, {1.1, 2, '1', '0'}};
    ASSERT_EQ(inputs.Timeline().Changes().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& got = inputs.Timeline().Changes()[i];
        EXPECT_NEAR(got.seconds, expected[i].seconds, 1e-6) << i;
        EXPECT_EQ(got.bit, expected[i].bit) << i;
        EXPECT_EQ(got.from, expected[i].from) << i;
        EXPECT_EQ(got.to, expected[i].to) << i;
    }
    const auto& face = FaceOf(TroubleshooterKind::Inputs);
    EXPECT_EQ(TimelineLine(expected[0], face), "   0.60 s  bit 4  Input 1  1 -> 0");
    EXPECT_EQ(TimelineText(inputs.Timeline(), face),
              "   0.60 s  bit 4  Input 1  1 -> 0\r\n"
              "   0.85 s  bit 4  Input 1  0 -> 1\r\n"
              "   1.10 s  bit 2  Jog 2 Negative  1 -> 0\r\n");

    inputs.Restart(); // opened again: the first reading is the start once more
    controller.replies["~"] = "\x7F";
    EXPECT_EQ(inputs.Tick(), TickOutcome::Read);
    EXPECT_TRUE(inputs.Timeline().Changes().empty());
    EXPECT_EQ(labels(inputs), "11111110");
}

TEST(TroubleshooterTimeline, KeepsTheLatestAndHandsOutOnlyWhatIsNew) {
    BitTimeline timeline;
    std::size_t seen = 0;
    for (int i = 0; i < 5; ++i) {
        timeline.Note({i * 1.0, i % 8, '1', '0'});
    }
    EXPECT_EQ(timeline.NewSince(seen).size(), 5u);
    EXPECT_TRUE(timeline.NewSince(seen).empty());
    for (int i = 5; i < 300; ++i) {
        timeline.Note({i * 1.0, i % 8, '0', '1'});
    }
    EXPECT_EQ(timeline.Changes().size(), BitTimeline::Capacity);
    EXPECT_EQ(timeline.Changes().front().seconds, 100.0);
    const auto fresh = timeline.NewSince(seen);
    ASSERT_EQ(fresh.size(), BitTimeline::Capacity) << "the dropped ones are gone";
    EXPECT_EQ(fresh.back().seconds, 299.0);
}

TEST_F(TroubleFixture, OutputsAskTheFirmwareFirstAndAnOldOneStopsTheTick) {
    TroubleshooterReading outputs(TroubleshooterKind::Outputs, driver, delay);
    const struct {
        const char* version;
        TickOutcome outcome;
        bool asksOutputs;
    } cases[] = {
        {"1.21\r", TickOutcome::OldFirmware, false},
        {"getD01.21\r", TickOutcome::OldFirmware, false}, // the echo goes first
        {"1.22\r", TickOutcome::Read, true},
        {"", TickOutcome::Read, true}, // a silent version is not judged
    };
    for (const auto& c : cases) {
        controller = {};
        controller.replies = {{"getD0,", c.version}, {"$", "$\x03"}};
        EXPECT_EQ(outputs.Tick(), c.outcome) << c.version;
        const auto s = sent();
        EXPECT_EQ(std::count(s.begin(), s.end(), "$"), c.asksOutputs ? 1 : 0) << c.version;
        EXPECT_EQ(controller.calls.front(), "clear");
    }
    EXPECT_EQ(outputs.Lamp(0), L::Lit);
    EXPECT_EQ(outputs.Lamp(2), L::Dim);
}

TEST_F(TroubleFixture, LimitsAskFourTimesAndTheLabelsFollowTheLamps) {
    TroubleshooterReading limits(TroubleshooterKind::Limits, driver, delay);
    controller.replies["?"] = "^?\xFE"; // Limit 1 minus hit; "^" and the echo are taken out
    EXPECT_EQ(limits.Tick(), TickOutcome::Read);
    EXPECT_EQ(sent(), std::vector<std::string>(4, "?"));
    EXPECT_EQ(lamps(limits), "dLLLLLLL") << "a hit limit, bit 0, shows the dim picture";
    EXPECT_EQ(labels(limits), "01111111");
    EXPECT_EQ(controller.sends.back().second, 300) << "four sends, 0.1 s apart";

    controller.replies["?"] = "?";
    EXPECT_EQ(limits.Tick(), TickOutcome::NoReply);
    EXPECT_EQ(labels(limits), "01111111");
}
