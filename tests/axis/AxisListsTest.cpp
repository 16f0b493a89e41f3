#include "axis/AxisMatch.h"
#include "axis/LimitList.h"
#include "axis/MotorConfigsDocument.h"
#include "axis/MotorList.h"
#include "support/ScriptedPrompts.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace korval;
using korval::testing::ScriptedPrompts;

namespace {
constexpr MotorMake Makes[] = {MotorMake::Vexta, MotorMake::Superior, MotorMake::MotorSetting};
}

TEST(MotorList, EveryRowOfEveryMakeIsTheSettingItStandsFor) {
    for (const auto make : Makes) {
        const auto rows = MotorRows(make);
        ASSERT_EQ(rows.size(), 7u);
        for (int setting = 0; setting < 7; ++setting) {
            EXPECT_EQ(IsBlankMotorRow(make, setting), rows[setting].empty());
            if (make == MotorMake::MotorSetting) {
                EXPECT_EQ(rows[setting], std::to_string(setting));
            }
        }
        EXPECT_TRUE(IsBlankMotorRow(make, -1));
        EXPECT_TRUE(IsBlankMotorRow(make, 7));
    }
}

TEST(MotorList, TheMakeChosenForASettingHasAModelThere) {
    for (int setting = 0; setting < 7; ++setting) {
        const auto make = MakeForMotorSetting(setting);
        ASSERT_TRUE(make) << setting;
        EXPECT_FALSE(IsBlankMotorRow(*make, setting)) << setting;
    }
    EXPECT_EQ(MakeForMotorSetting(3), MotorMake::Vexta) << "Vexta first where both have one";
    EXPECT_EQ(MakeForMotorSetting(5), MotorMake::Superior);
    EXPECT_FALSE(MakeForMotorSetting(-1));
    EXPECT_FALSE(MakeForMotorSetting(7));
}

TEST(MotorList, ABlankRowGoesBackToTheLastGoodRowOfItsMake) {
    const struct {
        MotorMake make;
        int clicked;
        int selected;
    } clicks[] = {
        {MotorMake::Vexta, 6, 1},        {MotorMake::Vexta, 4, 4},
        {MotorMake::Vexta, 6, 4},        {MotorMake::Vexta, 0, 4},
        {MotorMake::Vexta, 2, 4},        {MotorMake::Superior, 1, 2},
        {MotorMake::Superior, 0, 2},     {MotorMake::Superior, 6, 6},
        {MotorMake::Vexta, 2, 4},        {MotorMake::Superior, 1, 6},
        {MotorMake::MotorSetting, 0, 0}, {MotorMake::MotorSetting, 6, 6},
        {MotorMake::MotorSetting, 7, 6}, {MotorMake::Vexta, -1, 4},
    };
    MotorRowGuard guard;
    for (const auto& c : clicks) {
        EXPECT_EQ(guard.Pick(c.make, c.clicked), c.selected)
            << static_cast<int>(c.make) << " row " << c.clicked;
    }
}

TEST(MotorList, TheWizardOffersTheFirstModelOfEachMake) {
    EXPECT_EQ(MotorRows(MotorMake::Vexta)[FirstMotorRow(MotorMake::Vexta)], "PK245-01");
    EXPECT_EQ(MotorRows(MotorMake::Superior)[FirstMotorRow(MotorMake::Superior)], "M061");
    EXPECT_EQ(FirstMotorRow(MotorMake::MotorSetting), 0);
}

TEST(LimitList, EachSettingComesBackAsOneRowOfThatSetting) {
    const auto rows = LimitRows();
    ASSERT_EQ(rows.size(), 8u);
    for (int value = -2; value <= 2; ++value) {
        const auto row = LimitValueToListIndex(value);
        ASSERT_TRUE(row) << value;
        EXPECT_EQ(ListIndexToLimitValue(*row), value);
        EXPECT_FALSE(*row == 4 || *row == 5 || *row == 7) << "non-standard rows come from the file";
    }
    EXPECT_EQ(rows[*LimitValueToListIndex(1)], "Tavrin Slide");
    EXPECT_EQ(rows[*LimitValueToListIndex(-2)], "Tavrin Rotary Table");
    EXPECT_EQ(rows[*LimitValueToListIndex(2)], "Non-Standard Rotary Table (Normally Closed)");
    EXPECT_FALSE(LimitValueToListIndex(3));
    EXPECT_FALSE(LimitValueToListIndex(-3));
}

TEST(LimitList, NormallyOpenRowsAreNegativeAndClosedOnesPositive) {
    const auto rows = LimitRows();
    for (int row = 0; row < 8; ++row) {
        const auto value = ListIndexToLimitValue(row);
        if (rows[row].find("Normally Open") != std::string::npos) {
            EXPECT_LT(value, 0) << rows[row];
        }
        if (rows[row].find("Normally Closed") != std::string::npos) {
            EXPECT_GT(value, 0) << rows[row];
        }
    }
    EXPECT_EQ(ListIndexToLimitValue(2), 0) << "Auto-Detect";
    EXPECT_EQ(ListIndexToLimitValue(3), -1) << "None";
    EXPECT_EQ(ListIndexToLimitValue(8), 0);
    EXPECT_EQ(ListIndexToLimitValue(-1), 0);
}

TEST(MatchAxisChoice, KeepsTheStoredMakeOnlyWhileItsRowIsTheControllersSetting) {
    const struct {
        int storedMake, storedMotor;
        MotorMake shown;
        int motor, limit;
        MotorMake make;
        const char* model;
        std::optional<int> limitRow;
    } cases[] = {
        {1, 3, MotorMake::Vexta, 3, 1, MotorMake::Superior, "M062", 0},
        {1, 4, MotorMake::Superior, 3, 1, MotorMake::Vexta, "PK264-03", 0},
        {2, 5, MotorMake::Vexta, 5, -2, MotorMake::MotorSetting, "5", 1},
        // A fresh settings file reads as Vexta row 0, which matches a controller at 0: the
        // blank row is selected and the list's own guard takes it back to a model.
        {0, 0, MotorMake::Superior, 0, 0, MotorMake::Vexta, "", 2},
        {1, 1, MotorMake::Superior, 0, 0, MotorMake::MotorSetting, "0", 2},
        {0, 2, MotorMake::MotorSetting, 6, 2, MotorMake::Superior, "M092", 6},
        {9, 3, MotorMake::Superior, 3, -1, MotorMake::Vexta, "PK264-03", 3},
        {0, 0, MotorMake::Superior, 9, 7, MotorMake::Superior, "", std::nullopt},
    };
    for (const auto& c : cases) {
        const auto m = MatchAxisChoice(c.storedMake, c.storedMotor, c.shown, c.motor, c.limit);
        EXPECT_EQ(m.make, c.make) << c.storedMake << "/" << c.storedMotor << " " << c.motor;
        EXPECT_EQ(m.motorRow, c.motor);
        const auto rows = MotorRows(m.make);
        EXPECT_EQ(m.motorRow >= 0 && m.motorRow < 7 ? rows[m.motorRow] : "", c.model);
        EXPECT_EQ(m.limitRow, c.limitRow);
    }
}

TEST(MatchAxisChoice, ASilentControllerKeepsTheShownMakeAndSelectsNoModel) {
    const auto m = MatchAxisChoice(0, 0, MotorMake::Superior, -1, -1);
    EXPECT_EQ(m.make, MotorMake::Superior);
    EXPECT_TRUE(IsBlankMotorRow(m.make, m.motorRow));
}

TEST(MotorConfigsDocument, TheCopyBesideTheProgramOpensOtherwiseTheUserLocatesOne) {
    TempFolder dir;
    const auto folder = dir.path() + "/";
    ScriptedPrompts prompts;
    EXPECT_EQ(MotorConfigsDocument(folder, prompts), std::nullopt) << "cancelled";
    ASSERT_EQ(prompts.asked,
              std::vector<std::string>{"open Locate 'All Possible Motor Configs.ini'"});
    EXPECT_EQ(prompts.dialogs.at(0).filter, "Motor Files (*.ini)|*.ini|");
    EXPECT_EQ(prompts.dialogs.at(0).initialFolder, folder);
    EXPECT_EQ(prompts.dialogs.at(0).fileName, "All Possible Motor Configs.ini");
    prompts.files = {"/elsewhere/motors.ini"};
    EXPECT_EQ(MotorConfigsDocument(folder, prompts), "/elsewhere/motors.ini");

    std::ofstream(folder + "All Possible Motor Configs.ini") << "[Setting 0]\n";
    prompts.asked.clear();
    EXPECT_EQ(MotorConfigsDocument(folder, prompts), folder + "All Possible Motor Configs.ini");
    EXPECT_TRUE(prompts.asked.empty()) << "nothing asked";
}
