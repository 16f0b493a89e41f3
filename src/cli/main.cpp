// korval-cli: the controller from a shell, for integrators and production benches.
#include "CliOptions.h"
#include "CliSession.h"
#include "CommandTable.h"
#include "Commands.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>

using namespace korval::cli;

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    std::vector<std::string> args(argv + 1, argv + argc);
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
