// korval-cli as a user runs it: a real process, its output and its exit status.
#include "sim/PtyHost.h"
#include "sim/SimControl.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <thread>

namespace {

struct Result {
    int status;
    std::string out;
};

// Runs a shell command line; stdout is captured, stderr goes to a file beside it.
Result run(const std::string& command) {
    std::string out;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> buf{};
    while (pipe != nullptr) {
        const auto n = std::fread(buf.data(), 1, buf.size(), pipe);
        if (n == 0) {
            break;
        }
        out.append(buf.data(), n);
    }
    const int status = pipe != nullptr ? ::pclose(pipe) : -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

std::string cli(const std::string& args) {
    return std::string(KORVAL_CLI) + " " + args;
}

std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace

TEST(CliRun, ExitStatusesAndMessages) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const struct {
        std::string args;
        int status;
        const char* message;
    } cases[] = {
        {"fly", 2, "korval-cli: unknown command fly"},
        {"--baud 1200 status", 2, "korval-cli: --baud must be 9600"},
        {"--sim info colour", 2, "korval-cli: unknown subject colour"},
        {"--sim=arrangement=3 status", 2, "korval-cli: --sim:"},
        {"--port /nonexistent/tty status", 1, "korval-cli: cannot open port /nonexistent/tty"},
        {"--sim=silent=1 --baud 19200 diag", 1, "korval-cli: the controller does not answer"},
        {"--sim diag --output /nonexistent/folder/r", 1, "korval-cli: cannot write the report"},
        {"--sim watch switches", 2, "korval-cli: watch takes limits, inputs"},
        {"--sim watch inputs --seconds 0", 2, "korval-cli: watch takes limits, inputs"},
        {"--sim=firmware=1.21 watch outputs --seconds 2", 1,
         "korval-cli: Outputs Troubleshooter cannot be used with a KDX version lower than 1.22"},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(c.args) + " 2>" + errors);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_EQ(slurp(errors).rfind(c.message, 0), 0u) << c.args << ": " << slurp(errors);
    }
    EXPECT_FALSE(std::ifstream("/nonexistent/folder/r.txt"));
}

TEST(CliRun, EveryCommandWorksOnTheBuiltInController) {
    EXPECT_EQ(run(cli("--sim status")).out, "ONLINEREADY\n");
    EXPECT_EQ(run(cli("--sim send getD0,")).out, "1.22\n");
    EXPECT_EQ(run(cli("--sim=firmware=1.21 info outputs")).out,
              "Version 1.22 or higher is needed for this option. Your Version is: 1.21\n");
    EXPECT_EQ(run(cli("--sim=baud=38400 detect 2>/dev/null")).out, "Com1 38400\n");
    const auto axis = run(cli("--sim=arrangement=2 info axis")).out;
    EXPECT_NE(axis.find("Axis 2:\nSetting for Motor2: "), std::string::npos) << axis;
    EXPECT_NE(axis.find("Axis 3:\n\nAxis 4:\n\n"), std::string::npos) << "a two-motor chain";
}

TEST(CliRun, TheReportIsTheSameOverARealPortAsBuiltIn) {
    TempFolder dir;
    const auto builtIn = run(cli("--sim=arrangement=2+2 diag 2>/dev/null"));
    ASSERT_EQ(builtIn.status, 0);
    EXPECT_EQ(builtIn.out.rfind(std::string(20, '*') + " Diagnostic Results", 0), 0u);
    EXPECT_NE(builtIn.out.find("\r\n"), std::string::npos);

    // The same controller as its own program on a pseudo-terminal, reached by device path.
    const auto device = dir.file("device");
    const auto control = dir.file("control");
    ASSERT_EQ(std::system(("mkfifo " + control).c_str()), 0);
    const std::string sim = std::string(KDX_SIM) + " --arrangement 2+2 < " + control + " > " +
                            device + " 2>/dev/null & exec 3>" + control + "; ";
    const auto r = run("bash -c '" + sim + "for i in $(seq 50); do [ -s " + device +
                       " ] && break; sleep 0.1; done; " +
                       cli("--port $(head -1 " + device + ") diag --output " +
                           dir.file("report.txt.txt") + " 2>/dev/null") +
                       "; echo quit >&3'");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(slurp(dir.file("report.txt")), builtIn.out) << "byte for byte";
}

TEST(CliRun, WatchPrintsEachSwitchChangeAsALine) {
    korval::sim::PtyHost host;
    std::string error;
    ASSERT_TRUE(host.start(error)) << error;
    const auto bench = [&host](const char* line) {
        host.withChain([line](korval::sim::KdxChain& chain) {
            std::string answer;
            korval::sim::ApplyControl(chain, line, answer);
        });
    };
    std::thread presses([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        bench("input 1 on");
        std::this_thread::sleep_for(std::chrono::milliseconds(700));
        bench("input 1 off");
    });
    const auto r = run(cli("--port " + host.device() + " watch inputs --seconds 3"));
    presses.join();
    EXPECT_EQ(r.status, 0);
    const auto on = r.out.find(" s  bit 4  Input 1  1 -> 0\n");
    const auto off = r.out.find(" s  bit 4  Input 1  0 -> 1\n");
    ASSERT_NE(on, std::string::npos) << r.out;
    ASSERT_NE(off, std::string::npos) << r.out;
    EXPECT_LT(on, off);
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 2) << "nothing but the changes";
    const double pressedAt = std::stod(r.out.substr(0, on));
    EXPECT_GT(pressedAt, 0.5) << r.out;
    EXPECT_LT(pressedAt, 2.5) << r.out;
}
