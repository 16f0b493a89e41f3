#include "core/MainWindowRules.h"
#include "core/AdminSettings.h"
#include "core/ClsFormControl.h"
#include "core/MenuTree.h"

#include <gtest/gtest.h>

#include <set>

using namespace korval;

TEST(RunButton, OnlyTheExactText256IsAnEmptyProgram) {
    const struct {
        const char* reply;
        bool empty;
    } cases[] = {{"256", true},     {"256\r\n", true}, {"M256\r", true},
                 {"MM2M56M", true}, {"", false},       {"255", false},
                 {" 256", false},   {"2560", false},   {"256\n", false}};
    for (const auto& c : cases) {
        EXPECT_EQ(ProgramIsEmpty(c.reply), c.empty) << c.reply;
    }
    EXPECT_EQ(EmptyProgramMessage("PM2\r\n"), "No commands in Program 2 to run");
    EXPECT_EQ(EmptyProgramMessage(""), "No commands in Program  to run");
}

TEST(PortWindow, LabelsAndBaudIndexes) {
    EXPECT_EQ(PortCurrentText("3", "19200"), "Port: Com3, Baud: 19200");
    EXPECT_EQ(BaudIndex(9600), 1);
    EXPECT_EQ(BaudIndex(19200), 2);
    EXPECT_EQ(BaudIndex(38400), 3);
    EXPECT_EQ(BaudIndex(57600), -1) << "a baud outside the list leaves it";
    EXPECT_EQ(BaudIndex(0), -1);
}

TEST(MenuTree, NamesAreUniqueAndEveryParentComesFirst) {
    std::set<std::string_view> seen;
    for (const auto& e : MenuTree()) {
        EXPECT_TRUE(seen.insert(e.name).second) << e.name;
        EXPECT_TRUE(e.parent.empty() || seen.count(e.parent)) << e.name;
        EXPECT_TRUE(e.name.starts_with("Mnu")) << e.name;
    }
    EXPECT_EQ(seen.size(), MenuTree().size());
    for (const auto& check : AdminChecks()) {
        for (const auto menu : check.menus) {
            EXPECT_TRUE(seen.count(menu)) << check.box << " hides an unknown " << menu;
        }
    }
}

TEST(AdminSettings, ThePasswordIsComparedInUpperCase) {
    const struct {
        const char* answer;
        bool accepted;
    } cases[] = {{"MARIGO", true}, {"marigo", true},   {"MaRiGo", true},
                 {"", false},      {"MARIGO ", false}, {"MARIG", false}};
    for (const auto& c : cases) {
        EXPECT_EQ(AdminPasswordAccepted(c.answer), c.accepted) << c.answer;
    }
}

TEST(TextBoxKeyPress, KeysApplyAtTheCaretOrOverTheSelection) {
    const struct {
        TextBoxState before;
        int key;
        const char* text;
        int caret;
    } cases[] = {
        {{"200", 1, 0}, '5', "2500", 2},
        {{"200", 3, 0}, '5', "2005", 4},
        {{"200", 0, 0}, ClsFormControl::Backspace, "200", 0},
        {{"200", 2, 0}, ClsFormControl::Backspace, "20", 1},
        {{"2000", 1, 2}, ClsFormControl::Backspace, "20", 1},
        {{"2000", 1, 2}, '7', "270", 2},
        {{"2000", 1, 2}, 37, "2000", 1},
        {{"2000", 2, 0}, ClsFormControl::Enter, "2000", 2},
        {{"", 0, 0}, '1', "1", 1},
        {{"12", 9, 5}, '3', "123", 3}, // a caret past the end types at the end
    };
    for (const auto& c : cases) {
        const auto after = ClsFormControl::TextBoxKeyPress(c.before, c.key);
        EXPECT_EQ(after.text, c.text) << c.before.text << " key " << c.key;
        EXPECT_EQ(after.selStart, c.caret) << c.before.text << " key " << c.key;
    }
}
