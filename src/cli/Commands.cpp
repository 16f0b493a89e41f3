#include "Commands.h"

#include "CliSession.h"

#include <stdlib.h>
#include <unistd.h>

#include "core/Text.h"
#include "diagnostics/ClsKdxDiagnostic.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "link/PortMap.h"
#include "scripts/TerminalSend.h"
#include "sim/PtyHost.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>

namespace korval::cli {

namespace {

constexpr int DefaultHighestPort = 16;

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

struct Run {
    const CliOptions& options;
    CliSession& session;
    std::ostream& out;
    std::ostream& err;
};

int fail(std::ostream& err, const std::string& message, int status) {
    err << "korval-cli: " << message << "\n";
    return status;
}

int ports(const CliOptions&, std::ostream& out) {
    const PortMap map;
    for (const auto& e : map.list()) {
        out << "Com" << e.port << " " << e.device << (e.linked ? "" : " (found)") << "\n";
    }
    return ExitOk;
}

int detect(Run& r) {
    int highest = DefaultHighestPort;
    for (std::size_t i = 0; i < r.options.args.size(); ++i) {
        const auto& a = r.options.args[i];
        if (a == "--max-port" && i + 1 < r.options.args.size()) {
            const auto& n = r.options.args[++i];
            if (n.empty() || n.find_first_not_of("0123456789") != std::string::npos ||
                n.size() > 3 || std::stoi(n) < 1 || std::stoi(n) > PortMap::HighestPort) {
                return fail(r.err, "--max-port takes a number from 1 to 255", ExitUsage);
            }
            highest = std::stoi(n);
        } else {
            return fail(r.err, "detect takes only --max-port N", ExitUsage);
        }
    }
    auto& progress = r.session.mailbox().addBox(
        Mailbox::Mode::Replace, [&](const std::string& text) { r.err << text << "\n"; });
    const bool found = r.session.kdx().DetectKdx(highest, progress.sink());
    r.session.mailbox().drain();
    if (!found) {
        return fail(r.err, "no controller answered on ports 1 to " + std::to_string(highest),
                    ExitNoAnswer);
    }
    r.out << "Com" << r.session.kdx().GetPort() << " " << r.session.kdx().GetBaud() << "\n";
    return ExitOk;
}

// What came back, as lines a shell reads: the controller ends its lines with CR alone.
std::string asLines(std::string reply) {
    ReplaceAll(reply, "\r\n", "\n");
    ReplaceAll(reply, "\r", "\n");
    if (!reply.empty() && reply.back() != '\n') {
        reply += '\n';
    }
    return reply;
}

int send(Run& r) {
    if (r.options.args.size() != 1) {
        return fail(r.err, "send takes the text to send as one argument", ExitUsage);
    }
    auto& kdx = r.session.kdx();
    kdx.ClearPortChars();
    SendTerminalText(r.options.args[0], kdx);
    // Replies have no end mark: wait until the line has been quiet for a moment.
    int last = -1;
    for (int round = 0; round < 40; ++round) {
        r.session.delay().TimeDelay(0.1);
        const int count = kdx.CountNumberCharsAtPort();
        if (count == last && round >= 3) {
            break;
        }
        last = count;
    }
    r.out << asLines(kdx.ReadReplyAndClearPort());
    return kdx.VerifyStatus() == "ERRORCOMMUNICATIONS" ? ExitNoAnswer : ExitOk;
}

std::string forShell(std::string text) {
    ReplaceAll(text, "\r\n", "\n");
    return text;
}

int info(Run& r) {
    if (r.options.args.size() != 1) {
        return fail(r.err, "info takes one subject (korval-cli info --help lists them)", ExitUsage);
    }
    auto& session = r.session;
    ClsKdxDiagnostic diagnostic(session.kdx(), session.delay(), session.commands().AsFormatter());
    const auto& subject = r.options.args[0];
    std::string text;
    const auto axes = [&](auto method) {
        std::array<TextBox, 4> boxes;
        (diagnostic.*method)(AxisTargets{&boxes[0], &boxes[1], &boxes[2], &boxes[3]});
        std::string joined;
        for (int m = 0; m < 4; ++m) {
            joined += "Axis " + std::to_string(m + 1) + ":\r\n" +
                      boxes[static_cast<std::size_t>(m)].text + "\r\n";
        }
        return joined;
    };
    if (subject == "processor") {
        text = diagnostic.GetProcessor();
    } else if (subject == "opmode") {
        text = diagnostic.GetOperatingMode();
    } else if (subject == "programs") {
        TextBox current, associate;
        std::array<TextBox, 5> listings;
        RefreshProgramsPanel(
            diagnostic, {&current,
                         &associate,
                         {&listings[0], &listings[1], &listings[2], &listings[3], &listings[4]}});
        text = current.text + "\r\n" + associate.text + "\r\n";
        for (int n = 0; n < 5; ++n) {
            text += "Program " + std::to_string(n) + ":\r\n" +
                    listings[static_cast<std::size_t>(n)].text + "\r\n";
        }
    } else if (subject == "axis") {
        text = axes(&ClsKdxDiagnostic::GetAxisSettings);
    } else if (subject == "joystick-analog") {
        text = diagnostic.GetDeadBand() + axes(&ClsKdxDiagnostic::GetJoystickAnalogSettings);
    } else if (subject == "joystick-digital") {
        text = axes(&ClsKdxDiagnostic::GetJoystickDigitalSettings);
    } else if (subject == "output-pulse") {
        text = diagnostic.GetPulseWidth() + axes(&ClsKdxDiagnostic::GetPulseEveryNumSteps);
    } else if (subject == "multifunction") {
        text = diagnostic.GetMultifunctionUserInputs();
    } else if (subject == "analog-input") {
        text = diagnostic.GetAnalogInput();
    } else if (subject == "outputs") {
        text = diagnostic.GetUserOutputStates();
    } else if (subject == "overtravel") {
        text = diagnostic.GetOverTravel() + diagnostic.GetBacklash();
    } else if (subject == "inputs") {
        text = diagnostic.GetUserInputStates();
    } else if (subject == "limits") {
        text = diagnostic.GetLimitStates();
    } else {
        return fail(r.err, "unknown subject " + subject + " (korval-cli info --help lists them)",
                    ExitUsage);
    }
    r.out << asLines(forShell(text));
    return ExitOk;
}

int diag(Run& r) {
    std::optional<std::string> output;
    for (std::size_t i = 0; i < r.options.args.size(); ++i) {
        if (r.options.args[i] == "--output" && i + 1 < r.options.args.size()) {
            output = r.options.args[++i];
        } else {
            return fail(r.err, "diag takes only --output FILE", ExitUsage);
        }
    }
    std::optional<std::string> file;
    if (output) {
        file = DiagnosticReportFileName(*output);
        if (!file) {
            return fail(r.err, "--output needs a file name", ExitUsage);
        }
        // Say so before a scan of many seconds, not after it.
        const auto folder = std::filesystem::path(*file).parent_path();
        if (::access(folder.empty() ? "." : folder.c_str(), W_OK) != 0) {
            return fail(r.err, "cannot write the report to " + *file, ExitNoAnswer);
        }
    }
    auto& session = r.session;
    ClsKdxDiagnostic diagnostic(session.kdx(), session.delay(), session.commands().AsFormatter());
    DiagnosticBoxes boxes;
    // A diagnostic leaves the controller's current program as it found it.
    const auto report = RunCompleteDiagnostic(
        diagnostic, boxes,
        [&r](const std::string& added) { r.err << forShell(added) << std::flush; },
        ScanOptions{true});
    if (file) {
        if (!SaveDiagnosticReport(*file, report)) {
            return fail(r.err, "cannot write the report to " + *file, ExitNoAnswer);
        }
        r.err << "Report saved to " << *file << "\n";
    } else {
        r.out << report << std::flush;
    }
    return ExitOk;
}

int status(Run& r) {
    const auto word = r.session.kdx().VerifyStatus();
    r.out << word << "\n";
    return word == "ERRORCOMMUNICATIONS" ? ExitNoAnswer : ExitOk;
}

} // namespace

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

int runCommand(const CliOptions& options, std::ostream& out, std::ostream& err) {
    if (options.command == "ports") {
        return ports(options, out);
    }
    Simulator simulator; // outlives the session, which closes its port first
    std::string port = options.port;
    int baud = options.baud;
    if (options.sim) {
        if (const auto problem = startSimulator(options, simulator); !problem.empty()) {
            return fail(err, "--sim: " + problem, ExitUsage);
        }
        port = simulator.host->device();
        baud = options.baudGiven ? options.baud : simulator.baud;
    }
    CliSession session;
    if (const auto problem = session.loadLibraries(driverFolder()); !problem.empty()) {
        return fail(err, problem, ExitNoAnswer);
    }
    Run run{options, session, out, err};
    if (options.command == "detect") {
        return detect(run);
    }
    if (const auto problem = session.openPort(port, baud); !problem.empty()) {
        return fail(err, problem, ExitNoAnswer);
    }
    if (options.command == "status") {
        return status(run);
    }
    if (options.command == "send") {
        return send(run);
    }
    // The panels and the report ask an on-line controller, and must not ask a silent line.
    session.kdx().BringOnline();
    if (session.kdx().LastStatus == "ERRORCOMMUNICATIONS") {
        return fail(err, "the controller does not answer on " + port, ExitNoAnswer);
    }
    if (options.command == "info") {
        return info(run);
    }
    return diag(run);
}

} // namespace korval::cli
