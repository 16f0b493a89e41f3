#include "CommandTable.h"

#include <vector>

namespace korval::cli {

std::span<const CliCommand> AllCommands() {
    static const std::vector<CliCommand> all = [] {
        std::vector<CliCommand> commands;
        for (const auto group : {LinkCommands(), DiagnosticCommands(), AxisCommands(),
                                 DeviceCommands(), MotionCommands(), AutoReverseCommands()}) {
            commands.insert(commands.end(), group.begin(), group.end());
        }
        return commands;
    }();
    return all;
}

} // namespace korval::cli
