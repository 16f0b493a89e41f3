#include "motion/QuickMove.h"
#include "motion/QuickMoveUnits.h"

#include "core/Currency.h"

#include <gtest/gtest.h>

using namespace korval;

namespace {

using R = QuickMoveRefusal;
using W = QuickMoveWait;
constexpr auto Pos = QuickMoveDirection::Positive;
constexpr auto Neg = QuickMoveDirection::Negative;

} // namespace

TEST(QuickMoveSingle, CommandTextsForATableOfInputs) {
    const struct {
        std::int32_t motor;
        const char* advance;
        const char* velocity;
        const char* distance;
        QuickMoveDirection direction;
        const char* commands;
        std::int32_t limit; // of the negative arrow's wait
    } cases[] = {
        {1, "1", "2000", "400", Pos, "C,S1M2000,I1M400,R", 0},
        {2, "1", "2000", "400", Neg, "C,S2M2000,I2M-400,", 6}, // velocity over distance, plus one
        {1, "0.001", "2", "1.0005", Pos, "C,S1M2000,I1M1000,R", 0}, // 1000.5 to even
        {1, "0.001", "2", "1.0015", Pos, "C,S1M2000,I1M1002,R", 0},
        {1, "2", "5", "7", Pos, "C,S1M2,I1M4,R", 0}, // 2.5 and 3.5
        {3, "0.0254", "50.8", "25.4", Pos, "C,S3M2000,I3M1000,R", 0},
        {4, "0.5", "1,000.0000000", "2,000.2500000", Neg, "C,S4M2000,I4M-4000,", 2},
        {1, "1", "2000", "-400", Pos, "C,S1M2000,I1M-400,R", 0},
        {1, "1", "2000", "-400", Neg, "C,S1M2000,I1M--400,", -4},
        {1, "1", "6000", "16777215", Pos, "C,S1M6000,I1M16777215,R", 0},
        {1, "1", "6000", "16777215", Neg, "C,S1M6000,I1M-16777215,", 1},
        {1, "1", "6000", "16777216", Pos, "C,S1M6000,I1M16777216,R", 0},
        {1, "0.0001", "1", "1677.7215", Pos, "C,S1M10000,I1M16777215,R", 0},
        {1, "1", "7000", "-16777216", Pos, "C,S1M7000,I1M-16777216,R", 0},
        {1, "1", "900000000000000", "1", Neg, "C,S1M900000000000000,I1M-1,", 2147483647},
        {1, "1", "0.4", "0.6", Pos, "C,S1M0,I1M1,R", 0},
        {1, "1", "2000 steps", "400mm", Pos, "C,S1M2000,I1M400,R", 0},
    };
    for (const auto& c : cases) {
        const auto out =
            PlanQuickMoveSingle(c.motor, 4, c.advance, c.velocity, c.distance, c.direction);
        EXPECT_EQ(out.refusal, R::None) << c.distance;
        EXPECT_EQ(out.plan.commands, c.commands) << c.distance;
        EXPECT_EQ(out.plan.wait, c.direction == Pos ? W::None : W::RunAndWait) << c.distance;
        EXPECT_EQ(out.plan.timeLimit, c.limit) << c.distance;
    }
}

TEST(QuickMoveSingle, RefusedBeforeAnythingIsSent) {
    const struct {
        std::int32_t motor;
        int axes;
        const char* advance;
        const char* velocity;
        const char* distance;
        QuickMoveRefusal refusal;
    } cases[] = {
        {3, 2, "1", "2000", "400", R::NoSuchAxis},
        {0, 4, "1", "2000", "400", R::NoSuchAxis},
        {5, 4, "1", "2000", "400", R::NoSuchAxis},
        {1, 0, "1", "2000", "400", R::NoSuchAxis},
        {1, 4, "0", "2000", "400", R::NothingToMove},
        {1, 4, "", "2000", "400", R::NothingToMove},
        {1, 4, "0.00004", "2", "4", R::NothingToMove},
        {1, 4, "1", "0", "400", R::NothingToMove},
        {1, 4, "1", "", "400", R::NothingToMove},
        {1, 4, "1", "2000", "", R::NothingToMove},
        {1, 4, "1", "2000", "x", R::NothingToMove},
        {1, 4, "1", "2000", "0.00004", R::NothingToMove},
        {1, 4, "1", "2000", "0.5", R::NothingToMove}, // under a step: not "I1M0,", a limit seek
        {1, 4, "1", "1e300", "400", R::TooLarge},
        {1, 4, "1", "2000", "-1e16", R::TooLarge},
    };
    for (const auto& c : cases) {
        const auto out =
            PlanQuickMoveSingle(c.motor, c.axes, c.advance, c.velocity, c.distance, Pos);
        EXPECT_EQ(out.refusal, c.refusal)
            << c.motor << " " << c.advance << " " << c.velocity << " " << c.distance;
        EXPECT_EQ(out.plan.commands, "");
    }
    EXPECT_EQ(PlanQuickMoveSingle(2, 2, "1", "2000", "400", Pos).refusal, R::None);
}

TEST(QuickMoveMulti, GroupTwoFirstSignsFromTheDirectionsAlone) {
    const auto group = [](bool chosen, std::int32_t motor, double advance, const char* velocity,
                          const char* distance, std::optional<QuickMoveDirection> direction) {
        return QuickMoveGroup{chosen, motor, advance, velocity, distance, direction};
    };
    const auto m1 = group(true, 1, 1, "2000", "400", Pos);
    const auto m3 = group(true, 3, 1, "2000", "400", Pos);
    const struct {
        const char* what;
        QuickMoveGroup g1;
        QuickMoveGroup g2;
        const char* commands;
    } cases[] = {
        {"both positive", m1, m3, "C,(S3M2000,I3M400,S1M2000,I1M400,),R"},
        {"a negative distance under Positive", group(true, 2, 1, "2000", "-400", Pos),
         group(true, 4, 1, "1500", "50", Neg), "C,(S4M1500,I4M-50,S2M2000,I2M400,),R"},
        {"units and the seven decimals before rounding", group(true, 1, 0.5, "1000", "2.5", Neg),
         group(true, 3, 1, "-2000", "3.49999996", Pos), "C,(S3M2000,I3M4,S1M2000,I1M-5,),R"},
        {"thousands as the window writes them", group(true, 1, 1, "2,000", "1,234.5000000", Pos),
         m3, "C,(S3M2000,I3M400,S1M2000,I1M1234,),R"},
        {"group 2 alone", group(false, 1, 1, "2000", "400", Pos), m3, "C,(S3M2000,I3M400,),R"},
        {"distance 0.0000000 leaves a group out", group(true, 1, 1, "2000", "0.0000000", Pos), m3,
         "C,(S3M2000,I3M400,),R"},
        {"so does a distance under a ten-millionth", group(true, 1, 1, "2000", "0.00000004", Pos),
         m3, "C,(S3M2000,I3M400,),R"},
        {"and an empty or wordy one", group(true, 1, 1, "2000", "", Pos),
         group(true, 3, 1, "2000", "four", Pos), "C,(),R"},
        {"an advance of 0 adds nothing", group(true, 1, 0, "2000", "400", Pos), m3,
         "C,(S3M2000,I3M400,),R"},
        {"nor does an unset direction", m1, group(true, 3, 1, "2000", "400", std::nullopt),
         "C,(S1M2000,I1M400,),R"},
        {"nor a distance under a step", group(true, 1, 1, "2000", "0.4", Pos), m3,
         "C,(S3M2000,I3M400,),R"},
        {"an empty velocity is speed 0", group(true, 1, 1, "", "400", Neg), m3,
         "C,(S3M2000,I3M400,S1M0,I1M-400,),R"},
        {"bounds pass as they are", group(true, 1, 1, "6000", "16777216", Neg), m3,
         "C,(S3M2000,I3M400,S1M6000,I1M-16777216,),R"},
    };
    for (const auto& c : cases) {
        const auto out = PlanQuickMoveMulti(c.g1, c.g2, 4);
        EXPECT_EQ(out.refusal, R::None) << c.what;
        EXPECT_EQ(out.plan.commands, c.commands) << c.what;
        EXPECT_EQ(out.plan.wait, W::WhileBusy) << c.what;
    }
    EXPECT_EQ(PlanQuickMoveMulti(m1, m3, 2).refusal, R::NoSuchAxis);
    EXPECT_EQ(PlanQuickMoveMulti(m1, group(false, 3, 1, "2000", "400", Pos), 2).plan.commands,
              "C,(S1M2000,I1M400,),R")
        << "a group left out needs no axis";
    EXPECT_EQ(PlanQuickMoveMulti(group(true, 1, 1e-300, "2000", "1e300", Pos), m3, 4).refusal,
              R::TooLarge);
}

TEST(QuickMoveUnits, SwitchingMotorsKeepsTheStepsNotTheNumberShown) {
    VelDist boxes{"50.8", "25.4"}; // inches on axis 1, 0.0254 a step
    RestoreVelDist(boxes, "0.0254");
    EXPECT_EQ(boxes.velocity, "2,000.0000000");
    EXPECT_EQ(boxes.distance, "1,000.0000000");
    CalcVelDist(boxes, "0.5");
    EXPECT_EQ(boxes.velocity, "1,000.0000000");
    EXPECT_EQ(boxes.distance, "500.0000000");
    EXPECT_EQ(PlanQuickMoveSingle(2, 4, "0.5", boxes.velocity, boxes.distance, Pos).plan.commands,
              "C,S2M2000,I2M1000,R");
    RestoreVelDist(boxes, "0.5");
    EXPECT_EQ(boxes.distance, "1,000.0000000") << "back in steps for the settings file";
}

TEST(QuickMoveUnits, ConversionsLeaveAloneWhatTheyCannotConvert) {
    const struct {
        const char* what;
        void (*convert)(VelDist&, std::string_view);
        const char* advance;
        VelDist before;
        VelDist after;
    } cases[] = {
        {"no advance", RestoreVelDist, "", {"100", "50"}, {"100", "50"}},
        {"advance 0", CalcVelDist, "0", {"100", "50"}, {"100", "50"}},
        {"zero boxes", RestoreVelDist, "2", {"0", "0.0000000"}, {"0", "0.0000000"}},
        {"words", CalcVelDist, "2", {"fast", "12 mm"}, {"fast", "12 mm"}},
        {"negative", RestoreVelDist, "0.25", {"-1", "-0.5"}, {"-4.0000000", "-2.0000000"}},
        {"seven decimals, halves away",
         CalcVelDist,
         "0.0001",
         {"0.00125", "1"},
         {"0.0000001", "0.0001000"}},
    };
    for (auto c : cases) {
        c.convert(c.before, c.advance);
        EXPECT_EQ(c.before.velocity, c.after.velocity) << c.what;
        EXPECT_EQ(c.before.distance, c.after.distance) << c.what;
    }
}

TEST(QuickMoveUnits, ANewAdvanceKeepsTheStepsEachBoxStandsFor) {
    const struct {
        const char* old;
        const char* now;
        VelDist before;
        VelDist after;
    } cases[] = {
        {"", "2", {"100", "50"}, {"100", "50"}},
        {"1", "2", {"100", "50"}, {"200.0000000", "100.0000000"}},
        {"0", "0.5", {"100", "50"}, {"50.0000000", "25.0000000"}},
        {"0.5", "0", {"100", "50"}, {"0.0000000", "0.0000000"}},
        {"2", "1", {"1,000.0000000", "abc"}, {"500.0000000", "abc"}},
        {"3", "1", {"1", "-2"}, {"0.3333333", "-0.6666667"}},
    };
    for (auto c : cases) {
        AdvStepChanged(c.before, c.old, c.now);
        EXPECT_EQ(c.before.velocity, c.after.velocity) << c.old << " " << c.now;
        EXPECT_EQ(c.before.distance, c.after.distance) << c.old << " " << c.now;
    }
}

TEST(QuickMoveUnits, GroupsConvertWhenTheyTakePartAndAreTidied) {
    VelDist boxes{"1000", "2.5"};
    RestoreGroup(boxes, true, 0.5);
    EXPECT_EQ(boxes.velocity, "2,000");
    EXPECT_EQ(boxes.distance, "5");
    CalcGroup(boxes, true, 0.3);
    EXPECT_EQ(boxes.velocity, "600");
    EXPECT_EQ(boxes.distance, "1.5");
    for (const auto& [chosen, distance, advance] : {std::tuple{false, "5", 2.0},
                                                    {true, "0.0000000", 2.0},
                                                    {true, "", 2.0},
                                                    {true, "x", 2.0},
                                                    {true, "5", 0.0}}) {
        VelDist kept{"300", distance};
        CalcGroup(kept, chosen, advance);
        EXPECT_EQ(kept.velocity, "300") << distance;
        EXPECT_EQ(kept.distance, distance);
    }
    const struct {
        const char* text;
        const char* tidy;
    } trims[] = {{"2,000.5000000", "2,000.5"},
                 {"400.0000000", "400"},
                 {"400", "400"},
                 {"0.0000000", "0"},
                 {"-1.2500000", "-1.25"},
                 {"", ""},
                 {"1000", "1000"}};
    for (const auto& t : trims) {
        EXPECT_EQ(TrimExtraZeros(t.text), t.tidy) << t.text;
    }
}

TEST(QuickMoveAxes, OnlyTheAxesTheChainDrivesAreMoved) {
    const auto oneAndThree = AxesPresent::Of({1, 3}); // two single-motor controllers
    const struct {
        std::int32_t motor;
        AxesPresent present;
        QuickMoveRefusal refusal;
    } cases[] = {
        {1, oneAndThree, R::None},
        {2, oneAndThree, R::NoSuchAxis},
        {3, oneAndThree, R::None},
        {4, oneAndThree, R::NoSuchAxis},
        {4, 4, R::None},
        {3, 2, R::NoSuchAxis},
        {2, AxesPresent(), R::NoSuchAxis},
    };
    for (const auto& c : cases) {
        const auto out = PlanQuickMoveSingle(c.motor, c.present, "1", "2000", "400", Neg);
        EXPECT_EQ(out.refusal, c.refusal) << c.motor;
        EXPECT_EQ(out.plan.motors, c.refusal == R::None ? std::vector<std::int32_t>{c.motor}
                                                        : std::vector<std::int32_t>{})
            << c.motor;
    }
    const QuickMoveGroup g1{true, 1, 1, "2000", "400", Pos};
    const QuickMoveGroup g2{true, 4, 1, "2000", "400", Pos};
    EXPECT_EQ(PlanQuickMoveMulti(g1, g2, oneAndThree).refusal, R::NoSuchAxis);
    const auto both = PlanQuickMoveMulti(g1, g2, 4);
    EXPECT_EQ(both.plan.motors, (std::vector<std::int32_t>{4, 1})) << "in the command's order";
    EXPECT_TRUE(
        PlanQuickMoveMulti(g1, {true, 3, 0, "2000", "400", Pos}, AxesPresent::Of({1})).refusal ==
        R::NoSuchAxis)
        << "a group with nothing to add still needs its axis";
}

TEST(QuickMoveUnits, ATypedAdvancePerStepAsTheAxisKeepsIt) {
    const struct {
        const char* typed;
        std::optional<const char*> kept;
    } cases[] = {
        {"0.0254", "0.0254"},    {"1,000.5", "1000.5"}, {"0.00004", "0"},
        {"0.00005", "0"},        {"0.00015", "0.0002"}, {" 2 ", "2"},
        {"-0.5", "-0.5"},        {"1e3", "1000"},       {"", std::nullopt},
        {"0.5mm", std::nullopt}, {"abc", std::nullopt}, {"1e300", "922337203685477.5807"},
    };
    for (const auto& c : cases) {
        const auto kept = AdvStepFromBox(c.typed);
        ASSERT_EQ(kept.has_value(), c.kept.has_value()) << c.typed;
        if (kept) {
            EXPECT_EQ(kept->toText(), *c.kept) << c.typed;
        }
    }
}
