#include "motion/AutoReverseLayout.h"

#include <gtest/gtest.h>

using namespace korval;

TEST(AutoReverseLayout, EachFrameFollowsItsCombo) {
    AutoReverseSettings s;
    auto l = LayoutFor(s);
    EXPECT_FALSE(l.homeLimitControlsShown);
    EXPECT_FALSE(l.homePositionEnabled);
    EXPECT_TRUE(l.homeJogShown);
    EXPECT_TRUE(l.movePositionShown) << "shown but not typed into while teaching";
    EXPECT_FALSE(l.movePositionEnabled);
    EXPECT_TRUE(l.moveJogShown);
    EXPECT_FALSE(l.homePauseShown);
    EXPECT_FALSE(l.returnPauseShown);
    EXPECT_FALSE(l.moveToStartShown);
    EXPECT_TRUE(l.repeatShown);

    s.CmbHomeStyle = StartStyle::PositiveLimit;
    s.CmbMovePosition = MoveMode::Distance;
    s.CmbHomeIO = UserAction::Pause;
    s.CmbReturnPosition = UserAction::Pause;
    s.CmbRepeat = RepeatMode::DoContinuous;
    l = LayoutFor(s);
    EXPECT_TRUE(l.homeLimitControlsShown);
    EXPECT_TRUE(l.homePositionEnabled);
    EXPECT_FALSE(l.homeJogShown);
    EXPECT_TRUE(l.movePositionShown);
    EXPECT_TRUE(l.movePositionEnabled);
    EXPECT_FALSE(l.moveJogShown);
    EXPECT_TRUE(l.homePauseShown);
    EXPECT_TRUE(l.returnPauseShown);
    EXPECT_TRUE(l.moveToStartShown);
    EXPECT_FALSE(l.repeatShown);

    for (const auto mode : {MoveMode::ToPositiveLimit, MoveMode::ToNegativeLimit}) {
        s.CmbMovePosition = mode;
        EXPECT_FALSE(LayoutFor(s).movePositionShown);
        EXPECT_FALSE(LayoutFor(s).movePositionEnabled);
        EXPECT_FALSE(LayoutFor(s).moveJogShown);
    }
    s.CmbHomeIO = UserAction::Output2On;
    s.CmbReturnPosition = UserAction::WaitInput1;
    l = LayoutFor(s);
    EXPECT_FALSE(l.homePauseShown);
    EXPECT_FALSE(l.returnPauseShown);
    EXPECT_TRUE(l.moveToStartShown);
}
