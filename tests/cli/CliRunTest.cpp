// korval-cli as a user runs it: a real process, its output and its exit status.
#include "CliProcess.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace korval::test;

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
