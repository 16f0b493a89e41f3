#pragma once
// The command line of korval-cli, read into one record. Qt-free so it is tested on its own.
#include "CliCommand.h"

#include "link/ReplyTiming.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korval::cli {

struct CliOptions {
    std::string port = "1"; // a port number, "Com3", or a device path
    bool portGiven = false;
    int baud = 9600;
    bool baudGiven = false;
    std::optional<std::string> sim; // --sim[=OPTIONS]: the in-process controller's options
    ReplyTiming timing;             // --exact-timing, --reply-gap MS
    std::string command;
    std::vector<std::string> args;
    bool help = false;
};

struct ParseResult {
    std::optional<CliOptions> options;
    std::string error; // one line, for stderr, when options is empty
};

ParseResult parseCommandLine(const std::vector<std::string>& argv,
                             std::span<const CliCommand> commands);

std::string usage(std::span<const CliCommand> commands);
// Empty for an unknown command.
std::string commandHelp(std::span<const CliCommand> commands, const std::string& command);

} // namespace korval::cli
