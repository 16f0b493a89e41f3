// korval-cli: the controller from a shell, for integrators and production benches.
#include "CliOptions.h"
#include "CliSession.h"
#include "CommandTable.h"
#include "Commands.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>

using namespace korval::cli;

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    // A picture of a preview is drawn with the widgets, on the screenless platform; the rest
    // needs only the core. Qt's own remarks about the platform are no concern of a shell.
    std::unique_ptr<QCoreApplication> app;
    if (std::any_of(args.begin(), args.end(), [](const auto& a) { return a.ends_with(".png"); })) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        app = std::make_unique<QApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    const auto parsed = parseCommandLine(args, AllCommands());
    if (!parsed.options) {
        if (std::find(args.begin(), args.end(), "--help") != args.end() ||
            std::find(args.begin(), args.end(), "-h") != args.end()) {
            std::cout << usage(AllCommands());
            return 0;
        }
        std::cerr << "korval-cli: " << parsed.error << "\n";
        return ExitUsage;
    }
    const auto& options = *parsed.options;
    if (options.help) {
        std::cout << (options.command.empty() ? usage(AllCommands())
                                              : commandHelp(AllCommands(), options.command));
        return 0;
    }
    return runCommand(options, std::cout, std::cerr);
}
