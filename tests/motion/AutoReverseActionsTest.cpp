#include "AutoReverseFixture.h"

#include "core/ClsReadWriteFile.h"
#include "motion/AutoReverseActions.h"
#include "motion/ClsJog.h"
#include "support/TempFolder.h"

#include <filesystem>

using namespace korval;
using namespace korval::testing;

TEST_F(AutoReverseFixture, TestRunsAndWaitsStoreWaitsForTheCaret) {
    SendAutoReverseProgram(kdx, RunSaveAction::Test, "F,\rR\r");
    SendAutoReverseProgram(kdx, RunSaveAction::Store, "F,\rrsm\r");
    SendAutoReverseProgram(kdx, RunSaveAction::File, "F,\r");
    EXPECT_EQ(kdx.calls,
              (std::vector<std::string>{"send F,\rR\r", "run 1", "send F,\rrsm\r", "wait ^ 1"}));
}

TEST_F(AutoReverseFixture, NothingMoreGoesOutOnceTheWindowHasClosed) {
    kdx.visibleFor = 1;
    SendAutoReverseProgram(kdx, RunSaveAction::Test, "R");
    kdx.visibleFor = 0;
    SendAutoReverseProgram(kdx, RunSaveAction::Store, "rsm");
    EXPECT_EQ(kdx.calls, std::vector<std::string>{"send R"});
}

TEST_F(AutoReverseFixture, SavedOnceAsTxtInTheChosenFolder) {
    TempFolder dir;
    std::filesystem::create_directory(dir.file("old.txt.d"));
    const struct {
        const char* typed;
        const char* saved;
    } cases[] = {
        {"c.txt.txt", "c.txt"},
        {"old.txt.d/e", "old.txt.d/e.txt"}, // the folder's name is left alone
    };
    for (const auto& c : cases) {
        prompts.saves = {dir.file(c.typed)};
        EXPECT_EQ(SaveAutoReverseScript(prompts, dir.path(), "F,\r\nR\r\n"), dir.file(c.saved));
        EXPECT_EQ(readWholeFile(dir.file(c.saved)), "F,\r\nR\r\n") << c.typed;
    }
    ASSERT_FALSE(prompts.dialogs.empty());
    const auto& d = prompts.dialogs.back();
    EXPECT_EQ(d.filter, "Text Files (*.txt)|*.txt|");
    EXPECT_EQ(d.initialFolder, dir.path());
    EXPECT_EQ(d.fileName, "");
    EXPECT_EQ(prompts.asked, std::vector<std::string>(2, "save Save KDX Script to File"))
        << "no message";
}

TEST_F(AutoReverseFixture, ACancelWritesNothingAndAFailureSaysSo) {
    TempFolder dir;
    for (const auto& answer : {std::optional<std::string>{}, std::optional<std::string>{""}}) {
        prompts.saves = {answer};
        EXPECT_FALSE(SaveAutoReverseScript(prompts, dir.path(), "R"));
    }
    EXPECT_TRUE(dir.names().empty());
    EXPECT_EQ(prompts.asked, std::vector<std::string>(2, "save Save KDX Script to File"))
        << "no message";
    prompts.saves = {dir.file("missing/f")};
    EXPECT_FALSE(SaveAutoReverseScript(prompts, dir.path(), "R"));
    ASSERT_EQ(prompts.asked.size(), 4u);
    EXPECT_TRUE(prompts.asked[3].starts_with("Save KDX Script to File: The script could not be "
                                             "saved as " +
                                             dir.file("missing/f.txt")))
        << prompts.asked[3];
}

TEST(JogSpeeds, TypedAndTaught) {
    const struct {
        const char* typed;
        std::int32_t speed;
    } typed[] = {{"2.5", 2},   {"3.5", 4}, {"2000", 2000},
                 {"-1.5", -2}, {"", 0},    {"fast", 0},
                 {"1,500", 1}, {"9e9", 0}, {"2147483647", 2147483647}};
    for (const auto& c : typed) {
        EXPECT_EQ(JogSpeed(c.typed), c.speed) << c.typed;
    }
    EXPECT_EQ(TeachJogSpeed("2000.5", 0), 2000);
    EXPECT_EQ(TeachJogSpeed("2000", 1), -1);
    EXPECT_EQ(TeachJogSpeed("2000", 6), -6);
    EXPECT_EQ(TeachJogSpeed("2000", 7), -11);
    EXPECT_EQ(TeachJogSpeed("2000", 15), -24);
    EXPECT_EQ(TeachJogSpeed("2000", 21), -51);
    EXPECT_EQ(TeachJogSpeed("2000", 22), std::nullopt);
    EXPECT_EQ(TeachJogSpeed("2000", -1), std::nullopt);
}
