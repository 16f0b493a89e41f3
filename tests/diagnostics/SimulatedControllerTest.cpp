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

TEST_F(SimFixture, FourMotorChainWithAProgramALimitAndAnalogSettings) {
    start("arrangement=2+2");
    chain->receive("F,C,setjA1M5,setJA1M7,,rsm");
    chain->receive(",PM1,C,S1M2000,I1M-400,"); // after the settings: their "C," clears too
    chain->setLimit(2, sim::LimitSide::Plus, true);
    DiagnosticBoxes boxes;
    const auto report = RunCompleteDiagnostic(diagnostic, boxes).report;

    EXPECT_EQ(section(report, "Processor"),
              "Version: 1.22\r\nDate: 03/14/2005\r\nMode: Master\r\n");
    const auto programs = section(report, "Programs");
    EXPECT_NE(programs.find("S1M2000,"), std::string::npos) << programs;
    EXPECT_NE(programs.find("I1M-400,"), std::string::npos) << programs;
    EXPECT_EQ(programs.find("\n\n"), std::string::npos) << "CR LF line ends only";
    EXPECT_NE(section(report, "Axis").find("Setting for Limit4: "), std::string::npos);
    EXPECT_EQ(boxes.joystickAnalog[0].text, "Primary Axis 1 Setting:  5 = 5 to 1250 sps\r\n"
                                            "Secondary Axis 1 Setting:  7 = 7 to 1750 sps\r\n");
    EXPECT_NE(boxes.joystickAnalog[3].text, "");
    EXPECT_EQ(section(report, "User Outputs").substr(0, 18), "Actual value = 0\r\n");
    const auto limits = section(report, "Limit States");
    EXPECT_NE(limits.find("Limit 2 + Activated: True\r\n"), std::string::npos) << limits;
    EXPECT_NE(limits.find("Limit 2 - Activated: False\r\n"), std::string::npos) << limits;
    EXPECT_EQ(chain->currentProgram(), 4) << "the scan leaves the last listed program current";
}

TEST_F(SimFixture, TwoMotorControllerWithOlderFirmware) {
    start("arrangement=2,firmware=1.21");
    EXPECT_EQ(diagnostic.GetNumberOfControls(), 1);
    DiagnosticBoxes boxes;
    const auto report = RunCompleteDiagnostic(diagnostic, boxes).report;
    const auto axis = section(report, "Axis");
    EXPECT_TRUE(axis.ends_with("Setting for Limit2: 1\r\n\r\n\r\n\r\n")) << axis;
    EXPECT_EQ(axis.find("Motor3"), std::string::npos);
    EXPECT_EQ(boxes.outputPulse[2].text, "");
    EXPECT_EQ(section(report, "User Outputs"),
              "Version 1.22 or higher is needed for this option. Your Version is: 1.21\r\n\r\n");
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
