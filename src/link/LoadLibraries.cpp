#include "LoadLibraries.h"

#include "core/ClsFileFolder.h"
#include "core/ClsReadWriteFile.h"

#include <filesystem>

namespace korval {

namespace {

const char* const LibraryFilter = "Driver Files (*.so)|*.so|";

} // namespace

LibraryStage DriverStage(std::function<std::intptr_t(const std::string&)> load) {
    return {"Tavrin KDX Serial Driver.so", "Locate 'Tavrin KDX Serial Driver.so'",
            "Program cannot operate without the driver\r\n\r\nDo you wish to continue?",
            "Error: KDX Driver Missing", std::move(load)};
}

LibraryStage CommandsStage(std::function<std::intptr_t(const std::string&)> load) {
    return {"Tavrin KDX Commands.so", "Locate 'Tavrin KDX Commands.so'",
            "Program cannot operate without the KDX Commands\r\n\r\nDo you wish to continue?",
            "Error: KDX Commands Missing", std::move(load)};
}

bool LoadLibraryStage(const LibraryStage& stage, const ProgramFolders& paths, Prompts& prompts) {
    std::error_code ec;
    const auto expected = paths.driver + stage.fileName;
    std::intptr_t result = 0;
    if (std::filesystem::exists(expected, ec)) {
        result = stage.load(expected);
    } else if (const auto found = ClsFileFolder::FindFile(stage.fileName, paths.application);
               !found.empty()) {
        result = stage.load(found);
    }
    while (result == 0) {
        const auto chosen =
            prompts.OpenFile({stage.dialogTitle, LibraryFilter, paths.driver, stage.fileName});
        if (!chosen) {
            return false;
        }
        if (!chosen->empty()) {
            result = stage.load(*chosen);
            continue;
        }
        if (prompts.Message(stage.missingText, stage.missingTitle, Prompts::Icon::Question,
                            Prompts::Buttons::YesNo) == Prompts::Answer::No) {
            return false;
        }
    }
    return true;
}

bool LoadLibraries(const LibraryStage& driver, const LibraryStage& commands,
                   const ProgramFolders& paths, Prompts& prompts) {
    if (!LoadLibraryStage(driver, paths, prompts) || !LoadLibraryStage(commands, paths, prompts)) {
        return false;
    }
    std::error_code ec;
    if (!std::filesystem::exists(paths.settingsFile, ec)) {
        // Only the user's own settings folder can be missing here: the program's Config folder
        // comes with the installation and is used only when it is there.
        ClsFileFolder::MakeFolder(paths.config);
        ClsReadWriteFile file;
        file.CreateOutputFile(paths.settingsFile);
        file.CloseOutputFile();
    }
    return true;
}

} // namespace korval
