// kdx-sim: a virtual KDX chain on a pseudo-terminal, for the program, the tests and the bench.
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <poll.h>
#include <string>
#include <unistd.h>

#include "link/PortMap.h"
#include "sim/PtyHost.h"
#include "sim/SimControl.h"

namespace {

volatile std::sig_atomic_t quitSignal = 0;

void onSignal(int) {
    quitSignal = 1;
}

void usage() {
    std::printf(
        "usage: kdx-sim [options]\n"
        "Opens a pseudo-terminal, prints its path on the first line and plays a KDX chain on it.\n"
        "\n"
        "  --port N              link the device as ComN in the port map (removed on exit)\n"
        "  --arrangement A       1, 2, 2+1, 1+2, 1+1 or 2+2 (default 2)\n"
        "  --firmware V          version getD0 reports (default 1.22; below 1.22 \"$\" is silent)\n"
        "  --date D              firmware date (default 03/14/2005)\n"
        "  --mode N              mode number getD2 reports (default 2)\n"
        "  --baud B              9600, 19200 or 38400 (default 9600)\n"
        "  --echo on|off         echo at power-up (default off)\n"
        "  --silent DIGITS       axes that never answer a query, e.g. 2 or 34\n"
        "  --nolimits DIGITS     axes with no limit switches wired\n"
        "  --switches nc|no      limit switches normally closed or open (default nc)\n"
        "  --travel N            steps from the start to each limit switch (default 20000)\n"
        "  --overtravel N        the value \"O,\" reads (default 0)\n"
        "  --analog N            analog input at power-up, 0-255 (default 128)\n"
        "  --language-only on|off  answer the command language alone, not the driver's own\n"
        "                        words V, X, N, D, H (default off)\n"
        "  --reply-delay MS      each reply starts MS milliseconds late (default 0)\n"
        "  --char-spacing MS     a reply's characters come MS milliseconds apart (default: the\n"
        "                        line's rate)\n"
        "  --reply-pause MS      each reply of two or more characters pauses MS milliseconds\n"
        "                        before its middle character (default 0)\n"
        "  --options=TEXT        the same as key=value,key=value (e.g. "
        "arrangement=2+2,baud=19200)\n"
        "  --help                this text\n"
        "\n"
        "Control lines on standard input:\n%s",
        korval::sim::ControlHelp());
}

} // namespace

int main(int argc, char** argv) {
    korval::sim::SimOptions options;
    std::string error;
    int port = 0;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            usage();
            return 0;
        }
        std::string text;
        if (arg.rfind("--options=", 0) == 0) {
            text = arg.substr(10);
        } else if (arg.rfind("--", 0) == 0) {
            std::string key = arg.substr(2);
            std::string value;
            const auto eq = key.find('=');
            if (eq != std::string::npos) {
                value = key.substr(eq + 1);
                key.resize(eq);
            } else if (i + 1 < argc) {
                value = argv[++i];
            }
            if (key == "port") {
                if (value.empty() || value.size() > 3 ||
                    value.find_first_not_of("0123456789") != std::string::npos ||
                    std::stoi(value) < 1 || std::stoi(value) > korval::PortMap::HighestPort) {
                    std::fprintf(stderr, "kdx-sim: --port takes 1 to 255\n");
                    return 2;
                }
                port = std::stoi(value);
                continue;
            }
            text = key + "=" + value;
        } else {
            std::fprintf(stderr, "kdx-sim: unexpected argument \"%s\"; see --help\n", argv[i]);
            return 2;
        }
        if (!korval::sim::ParseSimOptions(text, options, error)) {
            std::fprintf(stderr, "kdx-sim: %s; see --help\n", error.c_str());
            return 2;
        }
    }

    korval::sim::PtyHost host(options);
    if (!host.start(error)) {
        std::fprintf(stderr, "kdx-sim: %s\n", error.c_str());
        return 1;
    }
    std::printf("%s\n", host.device().c_str());
    std::fflush(stdout);

    const korval::PortMap map;
    if (port > 0 && !map.registerPort(port, host.device())) {
        std::fprintf(stderr, "kdx-sim: cannot link Com%d in %s\n", port, map.folder().c_str());
    }

    struct sigaction sa {};
    sa.sa_handler = onSignal;
    sigaction(SIGINT, &sa, nullptr);
    sigaction(SIGTERM, &sa, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    std::string line;
    std::string pendingInput;
    bool stdinOpen = true;
    while (!quitSignal) {
        pollfd p{0, POLLIN, 0};
        const int ready = stdinOpen ? ::poll(&p, 1, 200) : ::poll(nullptr, 0, 200);
        if (ready <= 0 || !stdinOpen) {
            continue;
        }
        char buf[256];
        const ssize_t n = ::read(0, buf, sizeof buf);
        if (n <= 0) {
            stdinOpen = false; // run on until a signal, as a service would
            continue;
        }
        pendingInput.append(buf, static_cast<std::size_t>(n));
        if (pendingInput.size() > 4096 && pendingInput.find('\n') == std::string::npos) {
            pendingInput.clear(); // a control line that long is nothing we know
        }
        bool quit = false;
        for (auto nl = pendingInput.find('\n'); nl != std::string::npos;
             nl = pendingInput.find('\n')) {
            line = pendingInput.substr(0, nl);
            pendingInput.erase(0, nl + 1);
            std::string answer;
            auto result = korval::sim::ControlResult::Done;
            host.withChain([&](korval::sim::KdxChain& chain) {
                result = korval::sim::ApplyControl(chain, line, answer);
            });
            if (result == korval::sim::ControlResult::HangUp) {
                host.hangUp();
                answer = "hung up";
            } else if (result == korval::sim::ControlResult::Quit) {
                quit = true;
                break;
            }
            std::printf("%s%s", answer.c_str(), answer.empty() ? "ok\n" : "\n");
            std::fflush(stdout);
        }
        if (quit) {
            break;
        }
    }
    host.stop();
    if (port > 0) {
        map.unregisterPort(port);
    }
    return 0;
}
