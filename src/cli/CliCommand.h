#pragma once
// One command of korval-cli: its name, its help lines, what it needs before it runs, and the
// function that runs it. Each room's commands are one table in a file of their own
// (LinkCommands.cpp, DiagnosticCommands.cpp, ...), listed once in CommandTable.cpp.
#include <iosfwd>
#include <span>
#include <string>

namespace korval::cli {

struct CliOptions;
class CliSession;

enum ExitStatus { ExitOk = 0, ExitNoAnswer = 1, ExitUsage = 2, ExitInterrupted = 130 };

// What a command needs from the run before it starts.
enum class Needs {
    Nothing,     // no libraries, no port: a rule run on its own
    PortIfGiven, // a controller only when --port or --sim names one
    Libraries,   // the two libraries loaded, no port (the scan opens its own)
    Port,        // the port open
    Online,      // the port open and the controller brought on line
};

struct CliRun {
    const CliOptions& options;
    CliSession* session; // null when the command needs nothing, or no port was given
    std::ostream& out;   // what the user reads
    std::ostream& err;   // progress and errors
    std::string port;    // the port opened, as the user named it (or the built-in controller's)
};

struct CliCommand {
    const char* name;
    const char* help; // the usage lines, starting with the name
    Needs needs;
    int (*run)(CliRun& run);
};

// "korval-cli: MESSAGE" on err; gives the status back.
int Fail(std::ostream& err, const std::string& message, int status);

} // namespace korval::cli
