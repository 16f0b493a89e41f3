#include "Commands.h"

#include "CliSession.h"

#include "core/Text.h"
#include "link/PortMap.h"
#include "scripts/TerminalSend.h"

#include <functional>
#include <map>

namespace korval::cli {

namespace {

constexpr int DefaultHighestPort = 16;

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
    const auto plan = PlanTerminalSend(r.options.args[0]);
    for (const auto action : plan.actions) {
        action == LinkAction::BringOnline ? kdx.BringOnline() : kdx.BringOffline();
    }
    kdx.SendCommandsToPort(plan.toSend);
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

int status(Run& r) {
    const auto word = r.session.kdx().VerifyStatus();
    r.out << word << "\n";
    return word == "ERRORCOMMUNICATIONS" ? ExitNoAnswer : ExitOk;
}

} // namespace

int runCommand(const CliOptions& options, std::ostream& out, std::ostream& err) {
    if (options.command == "ports") {
        return ports(options, out);
    }
    CliSession session;
    if (const auto problem = session.loadLibraries(driverFolder()); !problem.empty()) {
        return fail(err, problem, ExitNoAnswer);
    }
    Run run{options, session, out, err};
    if (options.command == "detect") {
        return detect(run);
    }
    if (const auto problem = session.openPort(options.port, options.baud); !problem.empty()) {
        return fail(err, problem, ExitNoAnswer);
    }
    if (options.command == "status") {
        return status(run);
    }
    if (options.command == "send") {
        return send(run);
    }
    return fail(err, "unknown command " + options.command, ExitUsage);
}

} // namespace korval::cli
