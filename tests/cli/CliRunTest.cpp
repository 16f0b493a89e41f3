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
        {"--sim --baud 19200 info processor", 1,
         "korval-cli: warning: the controller does not answer the status query"},
        {"--sim diag --output /nonexistent/folder/r", 1, "korval-cli: cannot write the report"},
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

// A controller built from the command language alone knows nothing of the driver's own words:
// the scan still gives the whole report, byte for byte, over a real port.
TEST(CliRun, ALanguageOnlyControllerOnARealPortGivesTheSameReport) {
    TempFolder dir;
    const auto builtIn = run(cli("--sim=arrangement=2+2 diag 2>/dev/null"));
    ASSERT_EQ(builtIn.status, 0);
    EXPECT_EQ(builtIn.out.rfind(std::string(20, '*') + " Diagnostic Results", 0), 0u);
    EXPECT_NE(builtIn.out.find("\r\n"), std::string::npos);

    // The same controller as its own program on a pseudo-terminal, reached by device path.
    const auto device = dir.file("device");
    const auto control = dir.file("control");
    ASSERT_EQ(std::system(("mkfifo " + control).c_str()), 0);
    const std::string sim = std::string(KDX_SIM) + " --arrangement 2+2 --language-only on < " +
                            control + " > " + device + " 2>/dev/null & exec 3>" + control + "; ";
    const auto r = run("bash -c '" + sim + "for i in $(seq 50); do [ -s " + device +
                       " ] && break; sleep 0.1; done; " +
                       cli("--port $(head -1 " + device + ") diag --output " +
                           dir.file("report.txt.txt") + " 2>" + dir.file("err")) +
                       "; echo quit >&3'");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(slurp(dir.file("report.txt")), builtIn.out) << "byte for byte";
    const auto progress = slurp(dir.file("err"));
    EXPECT_EQ(progress.rfind("korval-cli: warning: the controller does not answer the status", 0),
              0u)
        << progress;
    EXPECT_TRUE(progress.ends_with("Scan Complete\nGenerating Report\nReport saved to " +
                                   dir.file("report.txt") + "\n"))
        << progress;
}

TEST(CliRun, CtrlCEndsTheScanBetweenQueriesAndWritesNothing) {
    TempFolder dir;
    const auto r = run("bash -c '" + cli("--sim --exact-timing diag --output " + dir.file("r")) +
                       " 2>" + dir.file("err") + " & sleep 1.5; kill -INT $!; wait $!; echo $?'");
    EXPECT_EQ(r.out, "130\n");
    const auto err = slurp(dir.file("err"));
    EXPECT_NE(err.find("korval-cli: interrupted during \"Scanning "), std::string::npos) << err;
    EXPECT_TRUE(err.ends_with("\"; no report written\n")) << err;
    EXPECT_EQ(dir.names(), std::vector<std::string>{"err"}) << "nothing half written";
}

// A controller that answers late and slowly, within the fixed waits: over a real port the quick
// mode and --exact-timing both give the report of a prompt controller, byte for byte.
TEST(CliRun, ALateControllerGivesTheSameReportInBothTimings) {
    const auto prompt = run(cli("--sim=arrangement=2+2 diag 2>/dev/null"));
    ASSERT_EQ(prompt.status, 0);
    const char* late = "--sim=arrangement=2+2,reply-delay=20,char-spacing=3 ";
    for (const char* timing : {"", "--exact-timing "}) {
        const auto r = run(cli(late + std::string(timing) + "diag 2>/dev/null"));
        EXPECT_EQ(r.status, 0) << timing;
        EXPECT_EQ(r.out, prompt.out) << timing;
    }
}
