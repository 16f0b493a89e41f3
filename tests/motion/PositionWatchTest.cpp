#include "motion/PositionWatch.h"
#include "motion/PositionReading.h"

#include <gtest/gtest.h>

#include <vector>

using namespace korval;

namespace {

using Kind = PositionReading::Kind;

AxisReadings at(std::int64_t a1, std::int64_t a2 = 0) {
    return {PositionReading{Kind::Steps, a1}, PositionReading{Kind::Steps, a2},
            PositionReading{Kind::Refused, 0}, PositionReading{Kind::Refused, 0}};
}

} // namespace

TEST(PositionReading, RepliesAndUnits) {
    const struct {
        const char* reply;
        PositionReading reading;
    } replies[] = {
        {"-1200", {Kind::Steps, -1200}},
        {"16777215", {Kind::Steps, 16777215}},
        {"0", {Kind::Steps, 0}},
        {"", {Kind::NoAnswer, 0}},
        {"J", {Kind::Refused, 0}},
        {"\xCB"
         "B",
         {Kind::Refused, 0}},
        {"12 ", {Kind::Refused, 0}},
        {"99999999999999999999", {Kind::Refused, 0}},
    };
    for (const auto& r : replies) {
        EXPECT_EQ(ReadPosition(r.reply), r.reading) << r.reply;
    }
    const struct {
        std::int64_t steps;
        const char* advance;
        const char* units;
    } units[] = {
        {400, "0.0254", "10.16"}, {-1200, "0.5", "-600"},      {400, "1", "400"},
        {3, "0.0001", "0.0003"},  {16777215, "1", "16777215"}, {400, "", ""},
        {400, "0", ""},           {16777215, "1e308", ""},     {-1, "2,000", "-2000"},
    };
    for (const auto& u : units) {
        EXPECT_EQ(PositionInUnits(u.steps, u.advance), u.units) << u.steps << " " << u.advance;
    }
}

TEST(PositionWatch, ReadsWhileMovingAndUntilThePositionsSettle) {
    // Each step: what the view sees at a tick, whether it reads, and what the read gives.
    struct Step {
        PositionWatch::Now now;
        bool reads;
        AxisReadings gives{};
    };
    const PositionWatch::Now ready{true, false, "ONLINEREADY"};
    const PositionWatch::Now busy{true, false, "BUSY"};
    const PositionWatch::Now jogging{true, false, "JOGGING"};
    const std::vector<Step> steps = {
        {ready, true, at(0)}, // the view opened: a first reading
        {ready, true, at(0)}, // and one to see it settled
        {ready, false},       // idle: nothing goes out
        {ready, false},
        {busy, true, at(100)}, // a move runs
        {busy, true, at(300)},
        {ready, true, at(400)}, // it ended; its last steps came in
        {ready, true, at(400)}, // settled
        {ready, false},
        {jogging, true, at(400, -50)},
        {{true, true, "JOGGING"}, false},   // a troubleshooter holds the line: hands off
        {{false, false, "JOGGING"}, false}, // hidden
        {jogging, true, at(400, -90)},
        {{true, false, "ERRORCOMMUNICATIONS"}, false}, // a silent controller is not asked
        {ready, true, at(400, -90)},
        {ready, false},
    };
    PositionWatch watch;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto& s = steps[i];
        ASSERT_EQ(watch.ShouldRead(s.now), s.reads) << "step " << i;
        if (s.reads) {
            watch.Read(s.gives);
        }
    }
}

TEST(PositionWatch, AWakeWaitsForTheLineAndRefusedAxesAreLeftAlone) {
    PositionWatch watch;
    const PositionWatch::Now ready{true, false, "ONLINEREADY"};
    ASSERT_TRUE(watch.ShouldRead(ready));
    watch.Read(at(5));
    ASSERT_TRUE(watch.ShouldRead(ready));
    watch.Read(at(5));
    EXPECT_FALSE(watch.ShouldRead(ready));
    EXPECT_TRUE(watch.Asks(2));
    EXPECT_FALSE(watch.Asks(3)) << "refused: not on this controller";
    EXPECT_FALSE(watch.Asks(0));

    watch.Wake(); // a status word came while a diagnostic held the line
    EXPECT_FALSE(watch.ShouldRead({true, true, "ONLINEREADY"}));
    EXPECT_TRUE(watch.ShouldRead(ready)) << "the wake was kept";
    watch.Read(at(5));
    EXPECT_FALSE(watch.ShouldRead(ready)) << "nothing had moved";

    watch.Restart(); // opened again: every axis is asked afresh
    EXPECT_TRUE(watch.Asks(3));
    EXPECT_TRUE(watch.ShouldRead(ready));
}
