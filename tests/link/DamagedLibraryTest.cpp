// A library cut short on disk (a failed copy, a full disk during an install) is refused like a
// missing one: the loader must not map past the end of the file.
#include "core/ClsTimeDelay.h"
#include "link/ClsDriverKdx.h"
#include "link/ClsKdxCommands.h"
#include "link/LibraryFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace korval;

namespace {

// Copies of the library cut at several points, each with the loader's answer.
void expectEveryCutRefused(const std::string& library,
                           const std::function<std::intptr_t(const std::string&)>& load) {
    TempFolder dir;
    const auto size = std::filesystem::file_size(library);
    for (const auto cut :
         {std::uintmax_t{0}, std::uintmax_t{16}, std::uintmax_t{64}, std::uintmax_t{700}, size / 8,
          size / 4, size / 2, size * 3 / 4, size - 4096, size - 1}) {
        const auto copy = dir.file("cut-" + std::to_string(cut) + ".so");
        std::filesystem::copy_file(library, copy);
        std::filesystem::resize_file(copy, cut);
        EXPECT_FALSE(LibraryFileProblem(copy).empty()) << cut << " of " << size;
        EXPECT_EQ(load(copy), 0) << cut << " of " << size;
    }
    EXPECT_EQ(LibraryFileProblem(library), "");
}

} // namespace

TEST(DamagedLibrary, ATruncatedCommandsLibraryIsNotLoaded) {
    ClsKdxCommands commands;
    expectEveryCutRefused(KORVAL_DRIVER_DIR "/Tavrin KDX Commands.so",
                          [&](const std::string& path) { return commands.LoadDll(path); });
}

TEST(DamagedLibrary, ATruncatedDriverIsNotLoaded) {
    SleepingWaitContext context;
    ClsTimeDelay delay(context);
    ClsDriverKdx kdx(delay);
    expectEveryCutRefused(KORVAL_DRIVER_DIR "/Tavrin KDX Serial Driver.so",
                          [&](const std::string& path) { return kdx.LoadDriver(path); });
}
