#pragma once
#include "CliOptions.h"

#include <ostream>

namespace korval::cli {

enum ExitStatus { ExitOk = 0, ExitNoAnswer = 1, ExitUsage = 2 };

// Runs one parsed command line; what the user reads goes to `out`, progress and errors to `err`.
int runCommand(const CliOptions& options, std::ostream& out, std::ostream& err);

} // namespace korval::cli
