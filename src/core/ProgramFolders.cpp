#include "ProgramFolders.h"

#include "ClsFileFolder.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace korval {

namespace {

bool writableFolder(const std::string& folder) {
    return std::filesystem::is_directory(folder) && ::access(folder.c_str(), W_OK) == 0;
}

} // namespace

std::string UserConfigFolder() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    if (xdg != nullptr && *xdg != '\0') {
        return ClsFileFolder::FormatPath(std::string(xdg) + "/korval");
    }
    const char* home = std::getenv("HOME");
    return ClsFileFolder::FormatPath(std::string(home != nullptr ? home : "/tmp") +
                                     "/.config/korval");
}

ProgramFolders FoldersFor(const std::string& programFolder) {
    ProgramFolders f;
    f.application = ClsFileFolder::FormatPath(programFolder);
    f.driver = ClsFileFolder::FormatPath(f.application + "Driver");
    f.config = ClsFileFolder::FormatPath(f.application + "Config");
    f.documentation = ClsFileFolder::FormatPath(f.application + "Documentation");
    if (!writableFolder(f.config)) {
        // An installed program's folder is not the user's to write: settings go home (the
        // folder is made once the libraries are loaded, with the settings file).
        f.config = UserConfigFolder();
    }
    f.settingsFile = f.config + "KORVAL Settings.ini";
    return f;
}

} // namespace korval
