#pragma once
// A program folder for a benchmark of the window program: both libraries, the settings folder
// with the run already counted (a first run would open the set-up wizard, which waits for its
// user), and the folder's own port map.
#include "support/TempFolder.h"

#include <QByteArray>
#include <QtGlobal>

#include <filesystem>
#include <fstream>

inline void MakeProgramFolder(const TempFolder& folder) {
    std::filesystem::create_directory_symlink(KORVAL_DRIVER_DIR, folder.file("Driver"));
    std::filesystem::create_directories(folder.file("Config"));
    std::ofstream(folder.file("Config/KORVAL Settings.ini"), std::ios::binary)
        << "[Run]\r\nTimes=1\r\n";
    qputenv("KORVAL_PORTS", QByteArray::fromStdString(folder.file("ports")));
}
