#pragma once
#include "CliOptions.h"

#include <ostream>

namespace korval::cli {

// Runs one parsed command line: makes what the command needs (a virtual controller, the
// libraries, the port, an on-line controller), then the command itself.
int runCommand(const CliOptions& options, std::ostream& out, std::ostream& err);

} // namespace korval::cli
