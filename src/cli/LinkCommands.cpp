// ports, detect, status, send: the line itself.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CliText.h"
#include "CommandTable.h"

#include "link/PortLabels.h"
#include "link/PortMap.h"
#include "link/system/SystemSerialPorts.h"
#include "scripts/TerminalSend.h"

#include <ostream>

namespace korval::cli {

namespace {

constexpr int DefaultHighestPort = 16;

int ports(CliRun& r) {
    for (const auto& p : LabelPorts(PortMap(), SystemSerialPorts())) {
        r.out << p.label << "\n";
    }
    return ExitOk;
}

int detect(CliRun& r) {
    int highest = DefaultHighestPort;
    const auto& args = r.options.args;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--max-port" && i + 1 < args.size()) {
            const auto& n = args[++i];
            if (n.empty() || n.find_first_not_of("0123456789") != std::string::npos ||
                n.size() > 3 || std::stoi(n) < 1 || std::stoi(n) > PortMap::HighestPort) {
                return Fail(r.err, "--max-port takes a number from 1 to 255", ExitUsage);
            }
            highest = std::stoi(n);
        } else {
            return Fail(r.err, "detect takes only --max-port N", ExitUsage);
        }
    }
    auto& session = *r.session;
    auto& progress = session.mailbox().addBox(
        Mailbox::Mode::Replace, [&](const std::string& text) { r.err << text << "\n"; });
    const bool found = session.kdx().DetectKdx(highest, progress.sink());
    session.mailbox().drain();
    if (!found) {
        return Fail(r.err, "no controller answered on ports 1 to " + std::to_string(highest),
                    ExitNoAnswer);
    }
    r.out << "Com" << session.kdx().GetPort() << " " << session.kdx().GetBaud() << "\n";
    return ExitOk;
}

int status(CliRun& r) {
    const auto word = r.session->kdx().VerifyStatus();
    r.out << word << "\n";
    return word == "ERRORCOMMUNICATIONS" ? ExitNoAnswer : ExitOk;
}

int send(CliRun& r) {
    if (r.options.args.size() != 1) {
        return Fail(r.err, "send takes the text to send as one argument", ExitUsage);
    }
    auto& kdx = r.session->kdx();
    kdx.ClearPortChars();
    SendTerminalText(r.options.args[0], kdx);
    // Replies have no end mark: wait until the line has been quiet for a moment.
    int last = -1;
    for (int round = 0; round < 40; ++round) {
        r.session->delay().TimeDelay(0.1);
        const int count = kdx.CountNumberCharsAtPort();
        if (count == last && round >= 3) {
            break;
        }
        last = count;
    }
    r.out << AsLines(kdx.ReadReplyAndClearPort());
    return kdx.VerifyStatus() == "ERRORCOMMUNICATIONS" ? ExitNoAnswer : ExitOk;
}

const CliCommand Commands[] = {
    {"ports",
     "ports                  list port numbers, the devices they resolve to and the\n"
     "                       USB adapters' descriptions",
     Needs::Nothing, ports},
    {"detect",
     "detect [--max-port N]  scan like the auto-detect; print \"Com<N> <baud>\";\n"
     "                       exit 1 when nothing answers",
     Needs::Libraries, detect},
    {"status", "status                 print the status word", Needs::Port, status},
    {"send",
     "send TEXT              send as the terminal does (rewrites, on/off line), wait,\n"
     "                       print what came back",
     Needs::Port, send},
};

} // namespace

std::span<const CliCommand> LinkCommands() {
    return Commands;
}

} // namespace korval::cli
