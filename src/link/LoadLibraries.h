#pragma once
// Finding and loading the two libraries at start-up, with the "Locate" dialogues when one is
// missing or refused, and the settings file created empty when there is none.
#include "core/ProgramFolders.h"
#include "core/Prompts.h"

#include <cstdint>
#include <functional>
#include <string>

namespace korval {

struct LibraryStage {
    std::string fileName;    // "Tavrin KDX Serial Driver.so"
    std::string dialogTitle; // "Locate 'Tavrin KDX Serial Driver.so'"
    std::string missingText;
    std::string missingTitle;
    std::function<std::intptr_t(const std::string& path)> load; // 0 when refused
};

LibraryStage DriverStage(std::function<std::intptr_t(const std::string&)> load);
LibraryStage CommandsStage(std::function<std::intptr_t(const std::string&)> load);

// One library: true when loaded, false when the user gave up (cancel, or No).
bool LoadLibraryStage(const LibraryStage& stage, const ProgramFolders& paths, Prompts& prompts);

// All three stages; false means the program must end.
bool LoadLibraries(const LibraryStage& driver, const LibraryStage& commands,
                   const ProgramFolders& paths, Prompts& prompts);

} // namespace korval
