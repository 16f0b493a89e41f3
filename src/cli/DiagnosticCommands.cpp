// info, diag, watch: the controller's state in words, and its switches as they change.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CliText.h"
#include "CommandTable.h"

#include <unistd.h>

#include "core/Numbers.h"
#include "diagnostics/ClsKdxDiagnostic.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "diagnostics/TroubleshooterReading.h"

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <optional>
#include <ostream>

namespace korval::cli {

namespace {

int info(CliRun& r) {
    if (r.options.args.size() != 1) {
        return Fail(r.err, "info takes one subject (korval-cli info --help lists them)", ExitUsage);
    }
    auto& session = *r.session;
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
        return Fail(r.err, "unknown subject " + subject + " (korval-cli info --help lists them)",
                    ExitUsage);
    }
    r.out << AsLines(ForShell(text));
    return ExitOk;
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
    ClsKdxDiagnostic diagnostic(session.kdx(), session.delay(), session.commands().AsFormatter());
    DiagnosticBoxes boxes;
    // A diagnostic leaves the controller's current program as it found it.
    const auto report = RunCompleteDiagnostic(
        diagnostic, boxes,
        [&r](const std::string& added) { r.err << ForShell(added) << std::flush; },
        ScanOptions{true});
    if (file) {
        if (const auto problem = SaveDiagnosticReport(*file, *report); !problem.empty()) {
            return Fail(r.err, "cannot write the report: " + problem, ExitNoAnswer);
        }
        r.err << "Report saved to " << *file << "\n";
    } else {
        r.out << *report << std::flush;
    }
    return ExitOk;
}

// Set by Ctrl+C or a polite kill while watch runs without an end of its own.
volatile std::sig_atomic_t interrupted = 0;

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
    interrupted = 0;
    const auto onInt = std::signal(SIGINT, [](int) { interrupted = 1; });
    const auto onTerm = std::signal(SIGTERM, [](int) { interrupted = 1; });
    std::size_t printed = 0;
    int status = ExitOk;
    // The window's pace: a tick every quarter second, or as soon as the last one ends.
    for (double due = 0; interrupted == 0 && (*seconds == 0 || elapsed() < *seconds);
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
    std::signal(SIGINT, onInt);
    std::signal(SIGTERM, onTerm);
    return status;
}

const CliCommand Commands[] = {
    {"info",
     "info SUBJECT           one panel's text: processor, opmode, programs, axis,\n"
     "                       joystick-analog, joystick-digital, output-pulse,\n"
     "                       multifunction, analog-input, outputs, overtravel, inputs,\n"
     "                       limits",
     Needs::Online, info},
    {"diag",
     "diag [--output FILE]   the complete diagnostic: progress on stderr, the report's\n"
     "                       exact bytes on stdout, or saved to FILE (\".txt\" added)",
     Needs::Online, diag},
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
