// A program followed on the preview's virtual controller: what it says of the run, and when.
#include "sim/PreviewBench.h"
#include "sim/PreviewReport.h"

#include <gtest/gtest.h>

using namespace korval::sim;

namespace {

PreviewResult preview(const std::string& text, PreviewOptions options = {}, int axis = 1) {
    PreviewBench bench(options);
    bench.send(text);
    return bench.follow(axis);
}

std::vector<std::pair<PreviewMarkKind, double>> marksOf(const PreviewResult& r) {
    std::vector<std::pair<PreviewMarkKind, double>> out;
    for (const auto& m : r.marks) {
        out.emplace_back(m.kind, m.start);
    }
    return out;
}

} // namespace

// Waits and pauses take exactly their time: the looks are a millisecond apart.
TEST(Preview, VerdictsAndTimesOfSmallPrograms) {
    const struct {
        const char* program;
        double operatorSeconds;
        PreviewVerdict verdict;
        std::optional<double> cycle;
        std::optional<double> total;
        long passes;
    } cases[] = {
        {"C,P15,R", 1, PreviewVerdict::Ends, {}, 1.5, 0},
        {"C,LM0,P5,U90,LA3,R", 1, PreviewVerdict::Ends, 1.5, 4.5, 3},
        {"C,LM0,U0,P2,LA2,R", 0.25, PreviewVerdict::Ends, 0.45, 0.9, 2},
        {"C,P5,LM0,P10,LA4,R", 1, PreviewVerdict::Ends, 1.0, 4.5, 4},
        {"C,LM0,P3,L0,R", 1, PreviewVerdict::Endless, 0.3, {}, 0},
        {"C,U5,U15,R", 1, PreviewVerdict::Ends, {}, 0.0, 0},
        {"C,R", 1, PreviewVerdict::NothingToRun, {}, {}, 0},
        {"C,LM0,P1,LA2,P1,LA2,R", 1, PreviewVerdict::Fault, {}, {}, 0},
    };
    for (const auto& c : cases) {
        PreviewOptions o;
        o.operatorSeconds = c.operatorSeconds;
        const auto r = preview(c.program, o);
        EXPECT_EQ(r.verdict, c.verdict) << c.program;
        ASSERT_EQ(r.cycleSeconds.has_value(), c.cycle.has_value()) << c.program;
        if (c.cycle) {
            EXPECT_NEAR(*r.cycleSeconds, *c.cycle, 1e-9) << c.program;
        }
        ASSERT_EQ(r.totalSeconds.has_value(), c.total.has_value()) << c.program;
        if (c.total) {
            EXPECT_NEAR(*r.totalSeconds, *c.total, 1e-9) << c.program;
        }
        EXPECT_EQ(r.passes, c.passes) << c.program;
        EXPECT_FALSE(r.totalEstimated) << c.program;
    }
}

TEST(Preview, PausesAndWaitsAreMarkedForTheCyclesShown) {
    PreviewOptions o;
    o.cycles = 2;
    const auto r = preview("C,LM0,P5,U90,LA9,R", o);
    using K = PreviewMarkKind;
    const std::vector<std::pair<K, double>> expected = {
        {K::Pause, 0.0}, {K::WaitRunButton, 0.5}, {K::Pause, 1.5}, {K::WaitRunButton, 2.0}};
    EXPECT_EQ(marksOf(r), expected);
    EXPECT_NEAR(r.marks[1].end, 1.5, 1e-9) << "answered after the operator's second";
    EXPECT_NEAR(r.traced, 3.0, 1e-9) << "the trace stops where the third pass begins";
    EXPECT_NEAR(*r.totalSeconds, 13.5, 1e-9) << "yet the run is timed to its end";
}

// The carriage seeks the switch of a short travel, stops on it, and comes back.
TEST(Preview, ALimitSeekStopsOnTheSwitchOfTheTravelGiven) {
    PreviewOptions o;
    o.travel = 500;
    const auto r = preview("C,S1M1000,I1M-0,IA1M-0,IA1M200,R", o);
    ASSERT_EQ(r.verdict, PreviewVerdict::Ends);
    ASSERT_EQ(r.marks.size(), 1u);
    EXPECT_EQ(r.marks[0].kind, PreviewMarkKind::LimitSwitch);
    EXPECT_EQ(r.marks[0].axis, 1);
    EXPECT_EQ(r.marks[0].position, -500);
    // 500 steps at 1000 a second, after a ramp of 25 ms; then 200 back at the same speed.
    EXPECT_NEAR(r.marks[0].start, 0.5125, 0.003);
    EXPECT_NEAR(*r.totalSeconds, 0.5125 + 0.2125, 0.01);
    ASSERT_EQ(r.traces.size(), 1u);
    EXPECT_EQ(r.traces[0].points.front(), (PreviewPoint{0, 0}));
    EXPECT_EQ(r.traces[0].points.back().position, -300);
}

TEST(Preview, OnlyTheMotorsThatMoveAreTraced) {
    const auto r = preview("C,I2M100,I4M-100,R", {}, 1);
    std::vector<int> axes;
    for (const auto& t : r.traces) {
        axes.push_back(t.axis);
    }
    EXPECT_EQ(axes, (std::vector<int>{1, 2, 4})) << "the one asked for, and the two that moved";
    EXPECT_EQ(r.traces[0].points.size(), 2u) << "a motor standing still is one flat line";
}

TEST(Preview, WhatTheControllerCannotHoldOrTake) {
    std::string tooLong = "C,";
    for (int i = 0; i < 70; ++i) {
        tooLong += "S1M100,";
    }
    const auto full = preview(tooLong + "R");
    EXPECT_EQ(full.verdict, PreviewVerdict::DoesNotFit);
    EXPECT_EQ(full.refused, 0) << "the full memory is its own verdict";

    const auto refused = preview("C,U7,S1M7000,P5,R");
    EXPECT_EQ(refused.verdict, PreviewVerdict::Ends);
    EXPECT_EQ(refused.refused, 2);
    EXPECT_NEAR(*refused.totalSeconds, 0.5, 1e-9) << "the rest runs";
}

TEST(Preview, ARunTooLongToFollowIsTimedFromItsCycle) {
    PreviewOptions o;
    o.longestTimed = 20;
    const auto counted = preview("C,P20,LM0,P10,LA65535,R", o);
    EXPECT_EQ(counted.verdict, PreviewVerdict::Ends);
    EXPECT_TRUE(counted.totalEstimated);
    EXPECT_NEAR(*counted.totalSeconds, 2 + 65535.0, 1e-6);
    const auto pause = preview("C,P30000,R", o);
    EXPECT_EQ(pause.verdict, PreviewVerdict::TooLong);
    EXPECT_FALSE(pause.totalSeconds);
}

TEST(PreviewReport, TheRunInWords) {
    PreviewOptions o;
    o.operatorSeconds = 0.25;
    const struct {
        const char* program;
        std::vector<std::string> lines;
    } cases[] = {
        {"C,LM0,U0,P2,LA2,R",
         {"Cycle time: 0.45 s", "Total time of 2 cycles: 0.90 s",
          "Each wait for the Run button or Input 1 is taken as answered after 0.25 s"}},
        {"C,LM0,P3,L0,R", {"Cycle time: 0.30 s", "Runs without end: only the Stop button ends it"}},
        {"C,P700,S1M9000,R",
         {"Total time: 1 min 10.0 s",
          "The controller refuses 1 command of the program: a value it cannot take"}},
        {"C,LM0,P1,LA2,P1,LA2,R", {"The controller stops with an error: a loop inside a loop"}},
        {"C,R", {"Nothing to run: program 0 holds no commands"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(PreviewSummary(preview(c.program, o), o), c.lines) << c.program;
    }
}

TEST(PreviewReport, SecondsAndOptions) {
    for (const auto& [seconds, text] : {std::pair{0.0, "0.00 s"},
                                        {59.994, "59.99 s"},
                                        {65.26, "1 min 05.3 s"},
                                        {3599.0, "59 min 59.0 s"},
                                        {3723.9, "1 h 02 min 03 s"},
                                        {98246.0, "27 h 17 min 26 s"}}) {
        EXPECT_EQ(FormatSeconds(seconds), text) << seconds;
    }
    const auto o = ReadPreviewOptions("2,500", "-3", "0");
    EXPECT_EQ(o.travel, 2) << "read up to the comma";
    EXPECT_EQ(o.operatorSeconds, 0);
    EXPECT_EQ(o.cycles, 1);
    const auto big = ReadPreviewOptions("1e9", "9999", "99.6");
    EXPECT_EQ(big.travel, 16777215);
    EXPECT_EQ(big.operatorSeconds, 3600);
    EXPECT_EQ(big.cycles, 20);
}

TEST(PreviewReport, TheTableOfPointsAndEvents) {
    PreviewOptions o;
    o.travel = 100;
    const auto csv = PreviewCsv(preview("C,P2,S1M1000,I1M-0,R", o));
    EXPECT_TRUE(csv.starts_with("seconds,motor,position,event\n"
                                "0.000,1,0,\n"
                                "0.000,,,Pause until 0.200\n"
                                "0.200,1,0,\n"))
        << csv;
    EXPECT_NE(csv.find(",1,-100,Limit switch\n"), std::string::npos) << csv;
}
