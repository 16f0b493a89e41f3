#pragma once
// The program's own folders: "Driver", "Config" and "Documentation" beside the program, in the
// build tree as in an install; settings go to the user's configuration folder when the
// program's own "Config" cannot be written.
#include <string>

namespace korval {

struct ProgramFolders {
    std::string application; // each with its trailing separator
    std::string driver;
    std::string config;
    std::string documentation;
    std::string settingsFile;
};

// "$XDG_CONFIG_HOME/korval/" or "~/.config/korval/": where a user's own files of this program
// live (settings of an installed program, the port map).
std::string UserConfigFolder();

// The folders under `programFolder`. Neither "Config" nor "Driver" is created here: they come
// with the installation; only the user's own configuration folder is made when it is needed.
ProgramFolders FoldersFor(const std::string& programFolder);

} // namespace korval
