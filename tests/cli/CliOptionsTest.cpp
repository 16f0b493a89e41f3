#include "cli/CliOptions.h"

#include <gtest/gtest.h>

using namespace korval::cli;

namespace {
const CliCommand Known[] = {
    {"info", "info SUBJECT", Needs::Online, nullptr},
    {"diag", "diag [--output FILE]", Needs::Online, nullptr},
    {"status", "status", Needs::Port, nullptr},
};
} // namespace

TEST(CliOptions, ReadsPortsBaudsSimulatorsAndCommands) {
    const auto p = parseCommandLine(
        {"--port", "/dev/pts/3", "--baud=19200", "--sim=arrangement=2+2", "info", "axis"}, Known);
    ASSERT_TRUE(p.options) << p.error;
    EXPECT_EQ(p.options->port, "/dev/pts/3");
    EXPECT_EQ(p.options->baud, 19200);
    EXPECT_TRUE(p.options->baudGiven);
    EXPECT_TRUE(p.options->portGiven);
    EXPECT_EQ(p.options->sim, "arrangement=2+2");
    EXPECT_EQ(p.options->command, "info");
    EXPECT_EQ(p.options->args, std::vector<std::string>{"axis"});

    const auto plain = parseCommandLine({"--sim", "diag", "--output", "x"}, Known);
    ASSERT_TRUE(plain.options);
    EXPECT_EQ(plain.options->sim, "");
    EXPECT_EQ(plain.options->port, "1");
    EXPECT_FALSE(plain.options->baudGiven);
    EXPECT_FALSE(plain.options->portGiven);
    EXPECT_EQ(plain.options->args, (std::vector<std::string>{"--output", "x"}));
    EXPECT_FALSE(plain.options->timing.exact) << "replies end when whole, unless asked";

    const auto timed = parseCommandLine({"--exact-timing", "--reply-gap=25", "diag"}, Known);
    ASSERT_TRUE(timed.options) << timed.error;
    EXPECT_TRUE(timed.options->timing.exact);
    EXPECT_EQ(timed.options->timing.gapMarginMs, 25);
}

TEST(CliOptions, UsageErrorsSayWhatIsWrong) {
    const struct {
        std::vector<std::string> args;
        const char* error;
    } cases[] = {
        {{}, "no command given (korval-cli --help lists them)"},
        {{"fly"}, "unknown command fly (korval-cli --help lists them)"},
        {{"--baud", "1200", "status"}, "--baud must be 9600, 19200 or 38400"},
        {{"--port"}, "--port needs a port number or a device"},
        {{"--verbose", "status"}, "unknown option --verbose"},
        {{"--reply-gap", "-5", "status"}, "--reply-gap takes milliseconds, 0 to 9999"},
        {{"--reply-gap", "status"}, "--reply-gap takes milliseconds, 0 to 9999"},
    };
    for (const auto& c : cases) {
        const auto p = parseCommandLine(c.args, Known);
        EXPECT_FALSE(p.options);
        EXPECT_EQ(p.error, c.error);
    }
    EXPECT_TRUE(parseCommandLine({"diag", "--help"}, Known).options->help);
    EXPECT_NE(commandHelp(Known, "diag").find("diag [--output FILE]"), std::string::npos);
    EXPECT_EQ(commandHelp(Known, "fly"), "");
}
