// info, diag, watch: the controller's state in words, and its switches as they change.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CliText.h"
#include "CommandTable.h"

#include <signal.h>
#include <unistd.h>

#include "core/Numbers.h"
#include "diagnostics/ClsKdxDiagnostic.h"
#include "diagnostics/CommandLanguage.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "diagnostics/TroubleshooterReading.h"

#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <ostream>

namespace korval::cli {

namespace {

std::atomic<bool> interrupted{false};

// Ctrl-C and a polite kill end the scan between two queries, never inside one.
class InterruptCatcher {
public:
    InterruptCatcher() {
        interrupted = false;
        struct sigaction action {};
        action.sa_handler = [](int) { interrupted = true; };
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &oldInt_);
        sigaction(SIGTERM, &action, &oldTerm_);
    }
    ~InterruptCatcher() {
        sigaction(SIGINT, &oldInt_, nullptr);
        sigaction(SIGTERM, &oldTerm_, nullptr);
    }
    InterruptCatcher(const InterruptCatcher&) = delete;
    InterruptCatcher& operator=(const InterruptCatcher&) = delete;

private:
    struct sigaction oldInt_ {};
    struct sigaction oldTerm_ {};
};

// The panels and the report ask an on-line controller; one that does not answer the driver's
// status query may still answer the language, so the queries go out all the same.
void bringOnline(CliRun& r) {
    r.session->kdx().BringOnline();
    if (r.session->kdx().LastStatus == "ERRORCOMMUNICATIONS") {
        r.err << "korval-cli: warning: the controller does not answer the status query on "
              << r.port << "; asking anyway\n";
    }
}

int noAnswer(CliRun& r) {
    return Fail(r.err, "no query was answered on " + r.port, ExitNoAnswer);
}

int info(CliRun& r) {
    if (r.options.args.size() != 1) {
        return Fail(r.err, "info takes one subject (korval-cli info --help lists them)", ExitUsage);
    }
    auto& session = *r.session;
    bringOnline(r);
    ClsKdxDiagnostic diagnostic(session.kdx(), session.delay(), session.commands().AsFormatter(),
                                nullptr, &r.options.timing);
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
        return Fail(r.err, "unknown subject " + subject + " (korval-cli info --help lists them)",
                    ExitUsage);
    }
    r.out << AsLines(ForShell(text));
    return diagnostic.cycle().Answered() > 0 ? ExitOk : noAnswer(r);
}

int diag(CliRun& r) {
    std::optional<std::string> output;
    const auto& args = r.options.args;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--output" && i + 1 < args.size()) {
            output = args[++i];
        } else {
            return Fail(r.err, "diag takes only --output FILE", ExitUsage);
        }
    }
    std::optional<std::string> file;
    if (output) {
        file = DiagnosticReportFileName(*output);
        if (!file) {
            return Fail(r.err, "--output needs a file name", ExitUsage);
        }
        // Say so before a scan of many seconds, not after it.
        const auto folder = std::filesystem::path(*file).parent_path();
        if (::access(folder.empty() ? "." : folder.c_str(), W_OK) != 0) {
            return Fail(r.err, "cannot write the report to " + *file, ExitNoAnswer);
        }
    }
    auto& session = *r.session;
    bringOnline(r);
    ClsKdxDiagnostic diagnostic(session.kdx(), session.delay(), session.commands().AsFormatter(),
                                nullptr, &r.options.timing);
    DiagnosticBoxes boxes;
    ScanOptions scan;
    scan.progress = [&r](const std::string& added) { r.err << ForShell(added) << std::flush; };
    scan.stopRequested = [] { return interrupted.load(); };
    const InterruptCatcher catcher;
    const auto result = RunCompleteDiagnostic(diagnostic, boxes, scan);
    if (result.stopped) {
        // Nothing half written, and the controller left idle and on line.
        session.kdx().SendCommandsToPort(std::string(kdx::QueryPrologue));
        session.delay().TimeDelay(QueryCycle::ReplyDelay);
        return Fail(r.err,
                    "interrupted during \"Scanning " + result.reachedStep + "\"; no report written",
                    ExitInterrupted);
    }
    if (result.Complete()) {
        r.err << "\n"; // "Generating Report" ends its line
        if (!result.exactFrom.empty()) {
            r.err << "korval-cli: a reply went on after its end during \"Scanning "
                  << result.exactFrom
                  << "\"; from there the scan waited the full time for each reply "
                     "(--exact-timing does so throughout)\n";
        }
    } else {
        r.err << "korval-cli: the serial line failed during \"Scanning " << result.reachedStep
              << "\"; the report is incomplete\n";
    }
    if (file) {
        if (const auto problem = SaveDiagnosticReport(*file, result.report); !problem.empty()) {
            return Fail(r.err, "cannot write the report: " + problem, ExitNoAnswer);
        }
        r.err << "Report saved to " << *file << "\n";
    } else {
        r.out << result.report << std::flush;
    }
    if (!result.Complete()) {
        return ExitNoAnswer;
    }
    return result.answered > 0 ? ExitOk : noAnswer(r);
}

// The seconds watch runs for; 0 for until interrupted, empty when the arguments are wrong.
std::optional<double> watchSeconds(const std::vector<std::string>& args) {
    if (args.size() == 1) {
        return 0.0;
    }
    if (args.size() != 3 || args[1] != "--seconds" || !IsNumeric(args[2]) || Val(args[2]) <= 0) {
        return std::nullopt;
    }
    return Val(args[2]);
}

int watch(CliRun& r) {
    const auto& args = r.options.args;
    const auto kind = args.empty() ? std::nullopt : TroubleshooterNamed(args[0]);
    const auto seconds = watchSeconds(args);
    if (!kind || !seconds) {
        return Fail(r.err,
                    "watch takes limits, inputs, outputs or multifunction, and --seconds N "
                    "(N above 0)",
                    ExitUsage);
    }
    auto& session = *r.session;
    TroubleshooterReading reading(*kind, session.kdx(), session.delay());
    const auto& face = FaceOf(*kind);
    auto& clock = session.delay().context();
    const auto start = clock.now();
    const auto elapsed = [&] { return std::chrono::duration<double>(clock.now() - start).count(); };
    const InterruptCatcher catcher; // Ctrl+C ends a watch without an end of its own
    std::size_t printed = 0;
    int status = ExitOk;
    // The window's pace: a tick every quarter second, or as soon as the last one ends.
    for (double due = 0; !interrupted && (*seconds == 0 || elapsed() < *seconds);
         due += TroubleshooterReading::TickSeconds) {
        if (const double ahead = due - elapsed(); ahead > 0) {
            session.delay().TimeDelay(ahead);
        }
        if (reading.Tick() == TickOutcome::OldFirmware) {
            status = Fail(r.err, TroubleshooterReading::OldFirmwareMessage, ExitNoAnswer);
            break;
        }
        for (const auto& change : reading.Timeline().NewSince(printed)) {
            r.out << TimelineLine(change, face) << std::endl;
        }
    }
    return status;
}

const CliCommand Commands[] = {
    {"info",
     "info SUBJECT           one panel's text: processor, opmode, programs, axis,\n"
     "                       joystick-analog, joystick-digital, output-pulse,\n"
     "                       multifunction, analog-input, outputs, overtravel, inputs,\n"
     "                       limits",
     Needs::Port, info},
    {"diag",
     "diag [--output FILE]   the complete diagnostic: progress on stderr, the report's\n"
     "                       exact bytes on stdout, or saved to FILE (\".txt\" added)",
     Needs::Port, diag},
    {"watch",
     "watch limits|inputs|outputs|multifunction [--seconds N]\n"
     "                       poll as the troubleshooter does (no prologue: a running\n"
     "                       program goes on) and print each bit change as a line:\n"
     "                       seconds, bit, row, old -> new; until Ctrl+C without N",
     Needs::Port, watch},
};

} // namespace

std::span<const CliCommand> DiagnosticCommands() {
    return Commands;
}

} // namespace korval::cli
