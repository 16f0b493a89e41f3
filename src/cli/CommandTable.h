#pragma once
// Every command of korval-cli, room by room.
#include "CliCommand.h"

#include <span>

namespace korval::cli {

std::span<const CliCommand> LinkCommands();
std::span<const CliCommand> DiagnosticCommands();
std::span<const CliCommand> AxisCommands();
std::span<const CliCommand> DeviceCommands();
std::span<const CliCommand> MotionCommands();
std::span<const CliCommand> AutoReverseCommands();

std::span<const CliCommand> AllCommands();

} // namespace korval::cli
