#include "FakeDriver.h"
#include "axis/AxisSet.h"
#include "axis/FixedPointText.h"

#include <gtest/gtest.h>

using namespace korval;
using korval::testing::fake;

namespace {

struct Box final : TextTarget {
    std::string text = "untouched";
    void SetText(const std::string& t) override { text = t; }
};

struct AxisFixture : ::testing::Test {
    korval::testing::VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    AxisSet axes{driver};

    void SetUp() override { driver.AttachTable(korval::testing::FakeTable()); }
};

} // namespace

TEST(FormatPosition, HoldsTheTextToThePositionRegister) {
    const struct {
        const char* typed;
        const char* clean;
    } cases[] = {
        {"+12", "12"},
        {"1+2", "12"},
        {"16777215", "16777215"},
        {"16777216", "16777215"},
        {"-16777215", "-16777215"},
        {"-16777216", "-16777215"},
        {"1e9", "16777215"},
        {"-1e999", "-16777215"},
        {"", "0"},
        {"abc", "0"},
        {"-0", "0"},
        {"007", "7"},
        {"12.50 steps", "12.5"},
        {"1,200", "1"},
        {"1\r\n2", "12"},
        {"\r\n-400\r\n", "-400"},
        {"1\r2", "12"},
        {"1\n2", "1"}, // a line feed without its carriage return still ends the number
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        Box box;
        EXPECT_EQ(ClsKdxAxis::FormatPosition(text, &box), c.clean) << '"' << c.typed << '"';
        EXPECT_EQ(text, c.clean) << "the caller's text is cleaned in place";
        EXPECT_EQ(box.text, c.clean);
    }
}

TEST(FormatVelocity, HoldsTheTextToZeroTo6000) {
    const struct {
        const char* typed;
        const char* clean;
    } cases[] = {
        {"6000", "6000"},  {"6000.5", "6000"}, {"7000", "6000"},     {"0", "0"},
        {"-1", "0"},       {"-0.5", "0"},      {"250.5", "250.5"},   {"+250", "250"},
        {"60+01", "6000"}, {"x", "0"},         {"2000\r\n", "2000"},
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        EXPECT_EQ(ClsKdxAxis::FormatVelocity(text), c.clean) << '"' << c.typed << '"';
        EXPECT_EQ(text, c.clean);
    }
}

TEST_F(AxisFixture, SetAdvStepKeepsFourDecimalsAndTheValueBefore) {
    const struct {
        const char* typed;
        const char* stored;
    } cases[] = {
        {"0.00004", "0"},      {"0.00005", "0"},
        {"0.00015", "0.0002"}, {"0.00025", "0.0002"},
        {"1.23456", "1.2346"}, {"-0.00015", "-0.0002"},
        {"2.5", "2.5"},        {"0.001", "0.001"},
        {"1,000", "1"},        {"12345.6789", "12345.6789"},
    };
    auto& axis = axes.Axis2;
    std::string before = axis.GetAdvStep();
    for (const auto& c : cases) {
        auto value = FixedPointFromText(c.typed);
        axis.SetAdvStep(value);
        EXPECT_EQ(axis.GetAdvStep(), c.stored) << c.typed;
        EXPECT_EQ(value.toText(), c.stored) << "the caller sees the rounded value";
        EXPECT_EQ(axis.GetOldAdvStep(), before) << c.typed;
        before = axis.GetAdvStep();
    }
}

TEST_F(AxisFixture, AdvStepChangedSeesEveryFieldAlreadyUpToDate) {
    auto& axis = axes.Axis1;
    std::vector<std::string> seen;
    axis.AdvStepChanged.subscribe([&](const std::string& step) {
        seen.push_back(step + " " + axis.GetAdvStep() + " old " + axis.GetOldAdvStep());
    });
    auto first = Currency::fromUnits(25000);
    auto second = Currency::fromUnits(1);
    axis.SetAdvStep(first);
    axis.SetAdvStep(second);
    EXPECT_EQ(seen, (std::vector<std::string>{"2.5 2.5 old ", "0.0001 0.0001 old 2.5"}));
    EXPECT_TRUE(axes.Axis2.GetAdvStep().empty()) << "each axis keeps its own";
}

TEST_F(AxisFixture, UnitsChangedSeesTheNewUnits) {
    std::string seen;
    axes.Axis3.UnitsChanged.subscribe(
        [&](const std::string& units) { seen = units + "/" + axes.Axis3.GetAdvStepUnits(); });
    axes.Axis3.SetAdvStepUnits("Inches");
    EXPECT_EQ(seen, "Inches/Inches");
}

TEST_F(AxisFixture, RestoringBeforeAnyReadWritesZero) {
    auto& axis = axes.Axis3;
    fake.motor[3] = 5;
    fake.limit[3] = -2;
    axis.RestorePrevMotorSetting(3);
    axis.RestorePrevLimitSetting(3);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"setM3M0", "setL3M0"}));
}

TEST_F(AxisFixture, RestoreWritesWhatWasReadAndLeavesTheFieldsAlone) {
    auto& axis = axes.Axis4;
    fake.motor[4] = 5;
    fake.limit[4] = -2;
    EXPECT_EQ(axis.GetPrevMotorSetting(4), "5");
    EXPECT_EQ(axis.GetPrevLimitSetting(4), "-2");
    EXPECT_EQ(axis.SetMotorSetting(4, 3), 1);
    EXPECT_EQ(axis.SetLimitSetting(4, 1), 1);
    fake.calls.clear();
    EXPECT_EQ(axis.RestorePrevMotorSetting(4), 1);
    EXPECT_EQ(axis.RestorePrevLimitSetting(4), 1);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"setM4M5", "setL4M-2"}));
    EXPECT_EQ(axis.GetMotorSetting(), "3");
    EXPECT_EQ(axis.GetLimitSetting(), "1");
}

TEST_F(AxisFixture, AFailedWriteStillKeepsTheNewSettingAndPassesTheResultOn) {
    fake.setResult = 0;
    EXPECT_EQ(axes.Axis1.SetMotorSetting(1, 4), 0);
    EXPECT_EQ(axes.Axis1.SetLimitSetting(1, -1), 0);
    EXPECT_EQ(axes.Axis1.GetMotorSetting(), "4");
    EXPECT_EQ(axes.Axis1.GetLimitSetting(), "-1");
}

TEST_F(AxisFixture, EachAxisNumberFindsItsOwnRecord) {
    EXPECT_EQ(axes.ByNumber(1), &axes.Axis1);
    EXPECT_EQ(axes.ByNumber(2), &axes.Axis2);
    EXPECT_EQ(axes.ByNumber(3), &axes.Axis3);
    EXPECT_EQ(axes.ByNumber(4), &axes.Axis4);
    EXPECT_EQ(axes.ByNumber(0), nullptr);
    EXPECT_EQ(axes.ByNumber(5), nullptr);
}

TEST(FixedPointFromText, SaturatesWhereTheTypeEnds) {
    EXPECT_EQ(FixedPointFromText("1e30").toText(), "922337203685477.5807");
    EXPECT_EQ(FixedPointFromText("-1e999").toText(), "-922337203685477.5808");
    EXPECT_EQ(FixedPointFromText("abc").toText(), "0");
}
