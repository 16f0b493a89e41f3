#include "Commands.h"

#include "CliSession.h"
#include "CommandTable.h"

#include <stdlib.h>
#include <unistd.h>

#include "link/PortMap.h"
#include "sim/PtyHost.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace korval::cli {

int Fail(std::ostream& err, const std::string& message, int status) {
    err << "korval-cli: " << message << "\n";
    return status;
}

namespace {

// A port folder for this run alone, named in the environment so the driver reads it.
class TempPortFolder {
public:
    TempPortFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "korval-ports-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        ::setenv("KORVAL_PORTS", path_.c_str(), 1);
    }
    ~TempPortFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// --sim: a virtual controller inside this program, on a pseudo-terminal of its own. For the
// scan it is linked as Com1 in a port folder of this run's own.
struct Simulator {
    std::unique_ptr<sim::PtyHost> host;
    std::unique_ptr<TempPortFolder> ports;
    int baud = 0;
};

std::string startSimulator(const CliOptions& options, Simulator& simulator) {
    sim::SimOptions simOptions;
    std::string problem;
    if (!sim::ParseSimOptions(*options.sim, simOptions, problem)) {
        return problem;
    }
    simulator.host = std::make_unique<sim::PtyHost>(simOptions);
    if (!simulator.host->start(problem)) {
        return problem;
    }
    simulator.baud = simOptions.baud;
    if (options.command == "detect") {
        simulator.ports = std::make_unique<TempPortFolder>();
        PortMap(simulator.ports->path()).registerPort(1, simulator.host->device());
    }
    return {};
}

} // namespace

int runCommand(const CliOptions& options, std::ostream& out, std::ostream& err) {
    const auto commands = AllCommands();
    const auto command = std::find_if(commands.begin(), commands.end(), [&](const CliCommand& c) {
        return options.command == c.name;
    });
    if (command == commands.end()) {
        return Fail(err, "unknown command " + options.command, ExitUsage);
    }
    const auto needs = command->needs;
    const bool controller = options.sim || options.portGiven;
    if (needs == Needs::Nothing || (needs == Needs::PortIfGiven && !controller)) {
        CliRun run{options, nullptr, out, err, {}};
        return command->run(run);
    }
    Simulator simulator; // outlives the session, which closes its port first
    std::string port = options.port;
    int baud = options.baud;
    if (options.sim) {
        if (const auto problem = startSimulator(options, simulator); !problem.empty()) {
            return Fail(err, "--sim: " + problem, ExitUsage);
        }
        port = simulator.host->device();
        baud = options.baudGiven ? options.baud : simulator.baud;
    }
    CliSession session;
    if (const auto problem = session.loadLibraries(driverFolder()); !problem.empty()) {
        return Fail(err, problem, ExitNoAnswer);
    }
    CliRun run{options, &session, out, err, port};
    if (needs == Needs::Libraries) {
        return command->run(run);
    }
    if (const auto problem = session.openPort(port, baud); !problem.empty()) {
        return Fail(err, problem, ExitNoAnswer);
    }
    if (needs == Needs::Online) {
        // The panels and the report ask an on-line controller, and must not ask a silent line.
        session.kdx().BringOnline();
        if (session.kdx().LastStatus == "ERRORCOMMUNICATIONS") {
            return Fail(err, "the controller does not answer on " + port, ExitNoAnswer);
        }
    }
    return command->run(run);
}

} // namespace korval::cli
