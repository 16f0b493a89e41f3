#include "link/LoadLibraries.h"

#include "core/ClsReadWriteFile.h"

#include "support/ScriptedPrompts.h"
#include "support/TempFolder.h"

#include <filesystem>

using namespace korval;
using korval::testing::ScriptedPrompts;

namespace {

struct LoaderFixture : ::testing::Test {
    TempFolder dir;
    ProgramFolders paths{dir.path() + "/", dir.path() + "/Driver/", dir.path() + "/Config/",
                         dir.path() + "/Documentation/",
                         dir.path() + "/Config/KORVAL Settings.ini"};
    std::vector<std::string> loads;
    std::string good = "good.so";
    ScriptedPrompts prompts;

    LibraryStage stage() {
        return DriverStage([this](const std::string& path) -> std::intptr_t {
            loads.push_back(std::filesystem::path(path).filename().string());
            return path.ends_with(good) ? 1 : 0;
        });
    }
    void file(const std::string& name) {
        std::filesystem::create_directories(std::filesystem::path(dir.file(name)).parent_path());
        ASSERT_TRUE(writeFileAtomically(dir.file(name), ""));
    }
};

} // namespace

TEST_F(LoaderFixture, TheDriverFolderComesFirstThenTheTreeSearch) {
    file("Driver/Tavrin KDX Serial Driver.so");
    good = "Tavrin KDX Serial Driver.so";
    EXPECT_TRUE(LoadLibraryStage(stage(), paths, prompts));
    EXPECT_TRUE(prompts.asked.empty());

    std::filesystem::remove_all(dir.file("Driver"));
    file("elsewhere/deep/Tavrin KDX Serial Driver.so");
    loads.clear();
    EXPECT_TRUE(LoadLibraryStage(stage(), paths, prompts));
    EXPECT_EQ(loads.size(), 1u);
}

TEST_F(LoaderFixture, ARefusedLibraryLeadsToTheDialogueNotToAMessage) {
    file("Driver/Tavrin KDX Serial Driver.so"); // present, but the loader refuses it
    prompts.files = {std::string("/x/good.so")};
    EXPECT_TRUE(LoadLibraryStage(stage(), paths, prompts));
    ASSERT_EQ(prompts.asked, std::vector<std::string>{"open Locate 'Tavrin KDX Serial Driver.so'"});
    EXPECT_EQ(prompts.dialogs[0].initialFolder, paths.driver);
    EXPECT_EQ(prompts.dialogs[0].fileName, "Tavrin KDX Serial Driver.so");
}

// Cancel and No end the program; the start-up tests go through those with the real libraries.
TEST_F(LoaderFixture, NothingChosenAsksWhetherToGoOnAndARefusedChoiceIsAskedAgain) {
    prompts.files = {std::string(), std::string("/x/wrong.so"), std::string(),
                     std::string("/x/good.so")};
    prompts.answers = {Prompts::Answer::Yes, Prompts::Answer::Yes};
    EXPECT_TRUE(LoadLibraryStage(stage(), paths, prompts));
    EXPECT_EQ(prompts.asked[1], "Error: KDX Driver Missing: Program cannot operate without the "
                                "driver\r\n\r\nDo you wish to continue?");
    EXPECT_EQ(prompts.asked.size(), 6u);
}

TEST_F(LoaderFixture, BothLibrariesThenAnEmptySettingsFile) {
    std::filesystem::create_directories(paths.config);
    int commandsLoads = 0;
    const auto commands = CommandsStage([&](const std::string&) -> std::intptr_t {
        ++commandsLoads;
        return 7;
    });
    file("Driver/Tavrin KDX Commands.so");
    prompts.files = {std::string("/x/good.so")};
    EXPECT_TRUE(LoadLibraries(stage(), commands, paths, prompts));
    EXPECT_EQ(commandsLoads, 1);
    EXPECT_EQ(readWholeFile(paths.settingsFile), "");

    ASSERT_TRUE(writeFileAtomically(paths.settingsFile, "[Run]\r\nTimes=3\r\n"));
    prompts.files = {std::string("/x/good.so")};
    EXPECT_TRUE(LoadLibraries(stage(), commands, paths, prompts));
    EXPECT_EQ(readWholeFile(paths.settingsFile), "[Run]\r\nTimes=3\r\n") << "kept as it is";
}
