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
        {"--sim axis 5", 2, "korval-cli: axis takes an axis number from 1 to 4 first"},
        {"--sim axis 1 --motor-setting 7 --test", 2, "korval-cli: --motor-setting takes a motor"},
        {"--sim axis 1 --limit-setting 3 --test", 2, "korval-cli: --limit-setting takes a limit"},
        {"--sim axis 1 --keep", 2, "korval-cli: settings are written only by a motor test"},
        {"--sim=arrangement=1 axis 2", 1, "korval-cli: axis 2 gives no motor setting"},
        {"--sim wizard --answer maybe", 2, "korval-cli: --answer takes yes or no"},
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

// The set-up commands through the same rules as the windows, on the built-in controller.
TEST(CliRun, TheWizardAndTheAxisCommandsReportWhatTheWindowsWouldShow) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const std::string slide = "motor setting 0, limit setting 1 (Tavrin Slide)\n";
    const auto wizard = run(cli("--sim=arrangement=2+2,silent=4 wizard --answer no 2>" + errors));
    EXPECT_EQ(wizard.status, 0);
    EXPECT_EQ(wizard.out, "Possible motors: 4\n"
                          "Arrangement code: 104 (axes 1, 2 and 3 certain, axis 4 in doubt)\n"
                          "Axis menus on: 1 2 3 4\n"
                          "Axis 1: " +
                              slide + "Axis 2: " + slide + "Axis 3: " + slide);
    EXPECT_NE(slurp(errors).find("Axis Setup: Do you have a motor 2 on the 2nd KDX? no\n"
                                 "Set-Up Wizard: KDX is now configured\n"),
              std::string::npos);

    const auto unanswered = run(cli("--sim=arrangement=2,silent=2 wizard </dev/null 2>" + errors));
    EXPECT_EQ(unanswered.status, 2);
    EXPECT_NE(slurp(errors).find("korval-cli: no answer for \"Axis Setup: Do you have a motor 2 "
                                 "on the 1st KDX?\""),
              std::string::npos);

    const auto kept =
        run(cli("--sim axis 2 --motor-setting 3 --limit-setting 0 --test --keep 2>/dev/null"));
    EXPECT_EQ(kept.status, 0);
    EXPECT_EQ(kept.out, "Axis 2: " + slide + "Position: 400\nPosition: 0\n" +
                            "Kept: motor setting 3 (Vexta PK264-03), limit setting 0 " +
                            "(Auto-Detect)\n");
    const auto tried = run(cli("--sim axis 2 --motor-setting 5 --test </dev/null 2>/dev/null"));
    EXPECT_EQ(tried.status, 0);
    EXPECT_EQ(tried.out, "Axis 2: " + slide + "Position: 400\nPosition: 0\nRestored: " + slide);
}
