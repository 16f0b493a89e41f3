// korval-screenshot FOLDER: starts the window program as a user would, in a program folder of its
// own with a virtual controller on Com1, and saves the manual's pictures of its windows into
// FOLDER ("main-window.png", "terminal.png", ...). Runs on the offscreen platform.
#include "KorvalStartup.h"
#include "ManualPictures.h"

#include "core/MessageLog.h"
#include "link/PortMap.h"
#include "sim/PtyHost.h"
#include "sim/SimControl.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

// A program folder as an installation leaves it, with the run already counted: a first run
// would open the set-up wizard, which waits for its user.
bool makeProgramFolder(const std::filesystem::path& folder, std::string& error) {
    std::error_code failed;
    std::filesystem::create_directory_symlink(
        std::filesystem::path(QApplication::applicationDirPath().toStdString()) / "Driver",
        folder / "Driver", failed);
    std::filesystem::create_directories(folder / "Config", failed);
    std::ofstream(folder / "Config" / "KORVAL Settings.ini", std::ios::binary)
        << "[Run]\r\nTimes=1\r\n";
    if (failed) {
        error = failed.message();
    }
    return !failed;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The offscreen platform's notes on what it cannot do would only crowd the build's log.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) {
            std::fprintf(stderr, "korval-screenshot: %s\n", qPrintable(text));
        }
    });
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: korval-screenshot FOLDER\n");
        return 2;
    }
    QTemporaryDir home;
    const std::filesystem::path folder = home.path().toStdString();
    std::string error;
    if (!home.isValid() || !makeProgramFolder(folder, error)) {
        std::fprintf(stderr, "korval-screenshot: no program folder: %s\n", error.c_str());
        return 1;
    }
    // The port map and the user's settings stay inside that folder too.
    qputenv("KORVAL_PORTS", QByteArray::fromStdString((folder / "ports").string()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((folder / "home").string()));
    korval::sim::SimOptions options;
    options.arrangement = "2+2";
    korval::sim::PtyHost controller(options);
    if (!controller.start(error) ||
        !korval::PortMap((folder / "ports").string()).registerPort(1, controller.device())) {
        std::fprintf(stderr, "korval-screenshot: no virtual controller: %s\n", error.c_str());
        return 1;
    }

    korval::MessageLog boxes([](const std::string& title, const std::string& text) {
        std::fprintf(stderr, "korval-screenshot: the program said \"%s: %s\"\n", title.c_str(),
                     text.c_str());
    });
    korval::KorvalStartup program(boxes, korval::FoldersFor(folder.string()));
    if (!program.Main()) {
        return 1;
    }
    korval::ManualPictures pictures(program.services(), [&controller](const std::string& line) {
        controller.withChain([&line](korval::sim::KdxChain& chain) {
            std::string answer;
            korval::sim::ApplyControl(chain, line, answer);
        });
    });
    const auto faults = pictures.Save(argv[1]);
    program.Shutdown();
    QApplication::processEvents();
    for (const auto& fault : faults) {
        std::fprintf(stderr, "korval-screenshot: %s\n", fault.c_str());
    }
    return faults.empty() ? 0 : 1;
}
