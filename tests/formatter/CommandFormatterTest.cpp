#include "formatter/CommandFormatter.h"

#include <gtest/gtest.h>

using korval::describeCommand;
using korval::formatCommands;

TEST(FormatCommands, OneCommandToALineWithoutComments) {
    const struct {
        const char* in;
        const char* out;
    } cases[] = {
        {"", ""},
        {"C,S1M2000,,I1M400", "C,\rS1M2000,\rI1M400,\r"},
        {"K,Q,F", "K,\rQ,\rF,\r"},
        {"C,S1M2000,I1M-400,R", "C,\rS1M2000,\rI1M-400,\rR\r"},
        {"C,setI7,rsm", "C,\rsetI7,\rrsm\r"},
        {"F,\t\t;KDX Online\r\nC,\t\t;clear\r\n\r\nR,", "F,\rC,\rR\r"},
        {"  S2M100 ;speed\rI2M0;to the limit\n", "S2M100,\rI2M0,\r"},
        {";only a comment\r", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatCommands(c.in, false), c.out) << c.in;
    }
}

TEST(FormatCommands, WithCommentsEveryCommandIsExplained) {
    EXPECT_EQ(formatCommands("F,C,R", true),
              "F,;KDX Online with Echo Off\rC,;Clear the current program\rR;Run the current "
              "program\r");
    const struct {
        const char* command;
        const char* comment;
    } cases[] = {
        {"S1M2000", "Motor 1 speed 2000 steps/sec"},
        {"S2M-12", "Motor 2 analog speed 1000 to 3000 steps/sec"},
        {"S2M-4", "Motor 2 analog speed 1 to 4000 steps/sec"},
        {"S2M-19", "Motor 2 analog speed, unknown range 19"},
        {"I3M400", "Motor 3 index +400 steps"},
        {"I3M-400", "Motor 3 index -400 steps"},
        {"I1M0", "Motor 1 run to the + limit"},
        {"I1M-0", "Motor 1 run to the - limit"},
        {"IA4M-0", "Motor 4 make the present position absolute zero"},
        {"IA4M-250", "Motor 4 move to absolute position -250 steps"},
        {"P15", "Pause 1.5 seconds"},
        {"LA5", "Repeat 5 times"},
        {"PM-4", "The commands below belong to program 4"},
        {"setj2M2000", "Motor 2 primary joystick speed 2000 steps/sec"},
        {"getL3M", "Read the limit setting of motor 3"},
        {"rsm", "Store the settings"},
        {"U90", "Wait for the Run button"},
        {"I9M5", "Unknown command"},
        {"hello", "Unknown command"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(describeCommand(c.command), c.comment) << c.command;
    }
}

TEST(FormatCommands, NumbersOfAnyLengthAreDescribedExactly) {
    const std::string many(400, '7');
    const struct {
        std::string command;
        std::string comment;
    } cases[] = {
        {"S2M-6606566065", "Motor 2 analog speed, unknown range 6606566065"},
        {"S2M-012", "Motor 2 analog speed 1000 to 3000 steps/sec"},
        {"P" + many, "Pause " + many.substr(1) + ".7 seconds"},
        {"P0", "Pause 0 seconds"},
        {"P5", "Pause 0.5 seconds"},
        {"P0020", "Pause 2 seconds"},
        {"S1M" + many, "Motor 1 speed " + many + " steps/sec"},
        {"I1M-" + many, "Motor 1 index -" + many + " steps"},
        {"IA1M-" + many, "Motor 1 move to absolute position -" + many + " steps"},
        {"LA" + many, "Repeat " + many + " times"},
        {"I1M00", "Motor 1 index +00 steps"},
        {"S5M100", "Unknown command"},
        {"S1M", "Unknown command"},
        {"S1M-", "Unknown command"},
        {"getJA2M", "Read the secondary analog joystick setting of motor 2"},
        {"getJA2", "Unknown command"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(describeCommand(c.command), c.comment) << c.command;
    }
}

TEST(FormatCommands, OneLongItemIsLaidOutWhole) {
    for (const auto& item : {std::string(30000, 'a'), "S1M" + std::string(30000, '9'),
                             "IA2M-" + std::string(30000, '0'), "P" + std::string(30000, '1')}) {
        const auto out = formatCommands(item + ",R", true);
        EXPECT_EQ(out.substr(0, item.size() + 2), item + ",;") << item.substr(0, 8);
        EXPECT_TRUE(out.ends_with("R;Run the current program\r"));
    }
}
