// The diagnostic over the virtual controller, reached in-process through a driver table: the
// replies are the controller's own, not canned ones.
#include "core/Text.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "formatter/CommandFormatter.h"
#include "sim/KdxChain.h"
#include "support/FakeText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace korval;

namespace {

sim::KdxChain* chain = nullptr;
std::string port; // what arrived and has not been cleared

void collect() {
    port += chain->takeOutput();
}

KdxDriverTable SimTable() {
    KdxDriverTable t;
    t.SendToPort = [](const char* text, std::int32_t n) {
        collect();
        chain->receive(FakeArg(text, n));
        return std::int32_t{1};
    };
    t.ClearPort = [] {
        collect();
        port.clear();
        return std::int32_t{1};
    };
    t.ReadFromPort = [](std::int32_t* n) {
        collect();
        return FakeText(port, n);
    };
    t.ReadAndThenClearFromPort = [](std::int32_t* n) {
        collect();
        auto* text = FakeText(port, n);
        port.clear();
        return text;
    };
    t.IsPortOpen = [] { return std::int32_t{1}; };
    t.FreeText = [](char* text) { std::free(text); };
    return t;
}

struct ChainClock final : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        t += budget;
        chain->advance(std::chrono::duration_cast<std::chrono::microseconds>(budget).count());
    }
};

struct SimFixture : ::testing::Test {
    std::unique_ptr<sim::KdxChain> owned;
    ChainClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    ClsKdxDiagnostic diagnostic{driver, delay, [](const std::string& text, int flag) {
                                    return formatCommands(text, flag == 1);
                                }};

    void start(const std::string& optionText) {
        sim::SimOptions options;
        std::string error;
        ASSERT_TRUE(sim::ParseSimOptions(optionText, options, error)) << error;
        owned = std::make_unique<sim::KdxChain>(options);
        chain = owned.get();
        port.clear();
        driver.AttachTable(SimTable());
    }
};

} // namespace

// A section's body: from behind its banner to the next banner or the end.
std::string section(const std::string& report, const std::string& name) {
    const auto banner = "********** " + name + " **********\r\n";
    const auto start = report.find(banner);
    if (start == std::string::npos) {
        return "(no section " + name + ")";
    }
    const auto from = start + banner.size();
    const auto next = report.find("\r\n**********", from);
    return report.substr(from, next == std::string::npos ? std::string::npos : next + 2 - from);
}

TEST_F(SimFixture, ASilentControllerStillGivesTheWholeReport) {
    start("arrangement=2+2");
    chain->setSilent(true);
    DiagnosticBoxes boxes;
    const auto report = RunCompleteDiagnostic(diagnostic, boxes).report;
    EXPECT_EQ(section(report, "Processor"), "Version: Date: \r\n");
    EXPECT_EQ(section(report, "Axis"), "\r\n\r\n\r\n\r\n");
    EXPECT_EQ(section(report, "Limit States"), "");
    EXPECT_TRUE(report.ends_with("********** Limit States **********\r\n"));
}
