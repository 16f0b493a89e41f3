// autoreverse: an AutoReverse program from settings named as the tool's controls name them.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CliText.h"
#include "CommandTable.h"

#include "core/AtomicFile.h"
#include "core/MessageLog.h"
#include "core/chart/PreviewChart.h"
#include "motion/AutoReverseActions.h"
#include "motion/AutoReversePreview.h"
#include "motion/AutoReverseSetting.h"
#include "motion/KdxAutoReverseController.h"
#include "sim/PreviewReport.h"

#include <algorithm>
#include <optional>
#include <ostream>

namespace korval::cli {

namespace {

struct Request {
    RunSaveAction action = RunSaveAction::Test;
    bool actionGiven = false;
    std::optional<std::string> preview; // a .csv or .png file
    std::string travel = std::to_string(sim::PreviewOptions{}.travel);
    std::string cycles = std::to_string(sim::PreviewOptions{}.cycles);
    std::vector<std::string> pairs;
};

// The arguments read; empty when they make sense, else why not.
std::string readRequest(const std::vector<std::string>& args, Request& q) {
    const std::pair<const char*, RunSaveAction> actions[] = {
        {"--test", RunSaveAction::Test},
        {"--store", RunSaveAction::Store},
        {"--file", RunSaveAction::File},
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const auto& a = args[i];
        const auto action = std::find_if(std::begin(actions), std::end(actions),
                                         [&a](const auto& p) { return a == p.first; });
        const bool valued = a == "--preview" || a == "--travel" || a == "--cycles";
        if (action != std::end(actions)) {
            if (q.actionGiven) {
                return "autoreverse takes one of --test, --store, --file";
            }
            q.action = action->second;
            q.actionGiven = true;
        } else if (valued && i + 1 >= args.size()) {
            return a + " needs a value";
        } else if (a == "--preview") {
            q.preview = args[++i];
            if (!q.preview->ends_with(".csv") && !q.preview->ends_with(".png")) {
                return "--preview writes a .csv or a .png file";
            }
        } else if (a == "--travel") {
            q.travel = args[++i];
        } else if (a == "--cycles") {
            q.cycles = args[++i];
        } else if (a.starts_with("-")) {
            return "autoreverse does not know " + a;
        } else {
            q.pairs.push_back(a);
        }
    }
    return {};
}

// Every pair tried first on a generator of its own, so that a wrong one stops the command
// before anything reaches a controller.
std::string refusedPair(const std::vector<std::string>& pairs) {
    MessageLog quiet([](const std::string&, const std::string&) {});
    AutoReverseGenerator scratch(quiet, Formatter{});
    for (const auto& pair : pairs) {
        if (const auto outcome = ApplyAutoReverseAssignment(scratch, pair); !outcome.applied) {
            return outcome.problem;
        }
    }
    return {};
}

int writePreview(CliRun& r, const Request& q, const AutoReverseSettings& settings,
                 const Formatter& format) {
    auto options = sim::ReadPreviewOptions(q.travel, "1", q.cycles);
    const auto preview = PreviewAutoReverse(settings, format, options);
    const auto summary = sim::PreviewSummary(preview.result, options);
    const bool written = q.preview->ends_with(".csv")
                             ? writeFileAtomically(*q.preview, sim::PreviewCsv(preview.result))
                             : SavePreviewPicture(preview.result, summary, *q.preview);
    if (!written) {
        return Fail(r.err, "cannot write the preview to " + *q.preview, ExitNoAnswer);
    }
    for (const auto& line : summary) {
        r.err << "Preview: " << line << "\n";
    }
    return ExitOk;
}

int autoreverse(CliRun& r) {
    Request q;
    if (auto problem = readRequest(r.options.args, q); !problem.empty()) {
        return Fail(r.err, problem, ExitUsage);
    }
    if (auto problem = refusedPair(q.pairs); !problem.empty()) {
        return Fail(r.err, problem, ExitUsage);
    }
    // Without a controller the commands library is still what lays out the program.
    ClsKdxCommands own;
    auto* commands = r.session != nullptr ? &r.session->commands() : &own;
    if (r.session == nullptr) {
        const auto path = driverFolder() + "/Tavrin KDX Commands.so";
        if (own.LoadDll(path) == 0) {
            return Fail(r.err, "cannot load the commands library " + path, ExitNoAnswer);
        }
    }
    const auto format = commands->AsFormatter();
    MessageLog boxes([&r](const std::string& title, const std::string& text) {
        r.err << ForShell(title + ": " + text) << "\n";
    });
    std::optional<KdxAutoReverseController> kdx;
    if (r.session != nullptr) {
        kdx.emplace(r.session->kdx());
    }
    AutoReverseGenerator generator(boxes, format, kdx ? &*kdx : nullptr);
    for (const auto& pair : q.pairs) {
        ApplyAutoReverseAssignment(generator, pair);
    }
    const auto text = generator.Generate(q.action);
    if (q.preview) {
        if (const int status = writePreview(r, q, generator.settings, format); status != ExitOk) {
            return status;
        }
    }
    r.out << text << std::flush;
    if (kdx) {
        SendAutoReverseProgram(*kdx, q.action, text);
    }
    return ExitOk;
}

const CliCommand Commands[] = {
    {"autoreverse",
     "autoreverse [--test|--store|--file] [--preview FILE.csv|FILE.png] [--travel STEPS]\n"
     "                       [--cycles N] [NAME=VALUE ...]\n"
     "                       an AutoReverse program: each NAME=VALUE set as in the window,\n"
     "                       in order (CurrentMotor=2 CmbHomeStyle=1 TxtMovePosition=1000);\n"
     "                       prints the text for the controller (--file: for a file), and\n"
     "                       each message the window would show on stderr; with --port or\n"
     "                       --sim, --test runs it and --store stores it. --preview runs it\n"
     "                       on a virtual controller and saves the motion",
     Needs::PortIfGiven, autoreverse},
};

} // namespace

std::span<const CliCommand> AutoReverseCommands() {
    return Commands;
}

} // namespace korval::cli
