#include "CliOptions.h"

#include <algorithm>

namespace korval::cli {

namespace {

const CliCommand* findCommand(std::span<const CliCommand> commands, const std::string& name) {
    const auto it = std::find_if(commands.begin(), commands.end(),
                                 [&](const CliCommand& c) { return name == c.name; });
    return it == commands.end() ? nullptr : &*it;
}

} // namespace

std::string usage(std::span<const CliCommand> commands) {
    std::string text = "usage: korval-cli [--port N|DEVICE] [--baud 9600|19200|38400] "
                       "[--sim[=OPTIONS]] [--exact-timing] [--reply-gap MS] COMMAND [ARGS]\n\n"
                       "commands:\n";
    for (const auto& c : commands) {
        text += "  " + std::string(c.help) + "\n";
    }
    text += "\n--sim runs a virtual controller inside this program, e.g. "
            "--sim=arrangement=2+2,firmware=1.21\n"
            "A query ends once its reply is whole and the line has been quiet for four character\n"
            "times and --reply-gap MS more (default 10); --exact-timing waits the full fixed time\n"
            "for every reply instead, for a controller that pauses inside its replies.\n"
            "Exit status: 0 done, 1 the controller does not answer, 2 usage error.\n";
    return text;
}

std::string commandHelp(std::span<const CliCommand> commands, const std::string& command) {
    const auto* c = findCommand(commands, command);
    return c == nullptr ? "" : "usage: korval-cli [options] " + std::string(c->help) + "\n";
}

ParseResult parseCommandLine(const std::vector<std::string>& argv,
                             std::span<const CliCommand> commands) {
    CliOptions o;
    for (std::size_t i = 0; i < argv.size(); ++i) {
        const auto& a = argv[i];
        const auto value = [&](const std::string& name) -> std::optional<std::string> {
            if (a.starts_with(name + "=")) {
                return a.substr(name.size() + 1);
            }
            if (a == name && i + 1 < argv.size()) {
                return argv[++i];
            }
            return std::nullopt;
        };
        if (!o.command.empty()) {
            if (a == "--help" || a == "-h") {
                o.help = true;
            } else {
                o.args.push_back(a);
            }
        } else if (a == "--help" || a == "-h") {
            o.help = true;
        } else if (a == "--sim") {
            o.sim = "";
        } else if (a.starts_with("--sim=")) {
            o.sim = a.substr(6);
        } else if (a.starts_with("--port")) {
            const auto v = value("--port");
            if (!v || v->empty()) {
                return {std::nullopt, "--port needs a port number or a device"};
            }
            o.port = *v;
            o.portGiven = true;
        } else if (a.starts_with("--baud")) {
            const auto v = value("--baud");
            if (!v || (*v != "9600" && *v != "19200" && *v != "38400")) {
                return {std::nullopt, "--baud must be 9600, 19200 or 38400"};
            }
            o.baud = std::stoi(*v);
            o.baudGiven = true;
        } else if (a == "--exact-timing") {
            o.timing.exact = true;
        } else if (a.starts_with("--reply-gap")) {
            const auto v = value("--reply-gap");
            if (!v || v->empty() || v->size() > 4 ||
                v->find_first_not_of("0123456789") != std::string::npos) {
                return {std::nullopt, "--reply-gap takes milliseconds, 0 to 9999"};
            }
            o.timing.gapMarginMs = std::stoi(*v);
        } else if (a.starts_with("-")) {
            return {std::nullopt, "unknown option " + a};
        } else if (findCommand(commands, a) == nullptr) {
            return {std::nullopt, "unknown command " + a + " (korval-cli --help lists them)"};
        } else {
            o.command = a;
        }
    }
    if (o.command.empty() && !o.help) {
        return {std::nullopt, "no command given (korval-cli --help lists them)"};
    }
    return {o, ""};
}

} // namespace korval::cli
