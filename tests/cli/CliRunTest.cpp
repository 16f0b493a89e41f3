// korval-cli as a user runs it: a real process, its output and its exit status.
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <sys/wait.h>

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
        {"calc-motor --wires six --current 1 --inductance 1", 2, "korval-cli: --wires takes"},
        {"calc-motor --wires 6 --current 1", 2, "korval-cli: calc-motor takes --wires W"},
        {"--sim attach 5 jog --velocity 1", 2, "korval-cli: attach takes AXIS (1 to 4)"},
        {"--sim attach 1 jog", 2, "korval-cli: attach jog takes --velocity V, or --disable"},
        {"--sim attach 1 digital --primary 2000 --secondary 2001", 2,
         "korval-cli: Speed Error: Secondary speed can not be higher than primary speed"},
        {"--sim attach 1 analog --primary 25", 2, "korval-cli: --primary takes a row from 0 to 24"},
        {"--sim attach 1 thumbwheel maybe", 2,
         "korval-cli: attach AXIS thumbwheel takes on or off"},
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

TEST(CliRun, CalcMotorPrintsWhatTheCalculatorShows) {
    const std::string contact = "Contact Tavrin Sales for a Motor that may be used\n";
    const std::string wires = "Motor Cannot be used, Invalid Number of Wires. " + contact;
    const struct {
        const char* args;
        std::string out;
    } cases[] = {
        {"--wires 6 --current 1 --inductance 2",
         "Calculated value = 0.7404, use KDX Motor Setting = 1\n"},
        {"--inductance 2 --current 1 --wires 8",
         "Calculated value = 0.7404, use KDX Motor Setting = 1\n"},
        {"--wires 0 --current 1 --inductance 2", wires},
        {"--wires 4 --current 1 --inductance 2", wires},
        {"--wires 8 --current 0.395 --inductance 1", "\n"},
        {"--wires 6 --current -1 --inductance -2", "\n"},
        {"--wires 6 --current abc --inductance 2",
         "Motor Cannot be used, Current Spec too Low. " + contact},
        {"--wires 6 --current 5 --inductance 4",
         "Motor Cannot be used, I*L Product Invalid.(Val=20), " + contact},
        {"--wires 6 --current 4.7001 --inductance 1",
         "Motor Cannot be used, Current Spec too High. " + contact},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(std::string("calc-motor ") + c.args));
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

TEST(CliRun, AttachSendsWhatTheDeviceWindowsSend) {
    const struct {
        const char* args;
        const char* out;
    } cases[] = {
        {"3 jog --velocity 7000", "C,setj3M6000,setJ3M6000,,rsm\n"},
        {"1 jog --disable", "C,setj1M0,setJ1M0,,rsm\n"},
        {"4 digital --primary 3000 --secondary 1500", "C,setj4M3000,setJ4M1500,,rsm\n"},
        {"2 analog --primary 4 --secondary 0 --deadband 7",
         "setDA20,rsm\nC,setjA2M4,setJA2M1,,rsm\n"},
        {"2 analog", "setDA50,rsm\nC,setjA2M1,setJA2M10,,rsm\n"},
        {"1 thumbwheel off", "C,setI7,rsm\n"},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(std::string("--sim=arrangement=2+2 attach ") + c.args));
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}
