// The diagnostic over the virtual controller, reached in-process through a driver table: the
// replies are the controller's own, not canned ones.
#include "core/Text.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "formatter/CommandFormatter.h"
#include "sim/KdxChain.h"
#include "sim/LinePacer.h"
#include "support/FakeText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace korval;

namespace {

sim::KdxChain* chain = nullptr;
sim::LinePacer* line = nullptr; // the controller's replies at the line's rate, and as slow as asked
std::string port;               // what arrived and has not been cleared

// What the chain has said goes on the line at the moment it was said.
void feed() {
    line->add(chain->takeOutput(), chain->nowMicros());
}

void collect() {
    feed();
    port += line->take(chain->nowMicros());
}

KdxDriverTable SimTable() {
    KdxDriverTable t;
    t.SendToPort = [](const char* text, std::int32_t n) {
        collect();
        chain->receive(FakeArg(text, n));
        feed();
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
    t.GetCurrentBaud = [] { return std::int32_t{9600}; };
    t.FreeText = [](char* text) { std::free(text); };
    return t;
}

struct ChainClock final : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        t += budget;
        chain->advance(std::chrono::duration_cast<std::chrono::microseconds>(budget).count());
        feed();
    }
};

std::string format(const std::string& text, int flag) {
    return formatCommands(text, flag == 1);
}

struct SimFixture : ::testing::Test {
    std::unique_ptr<sim::KdxChain> owned;
    std::unique_ptr<sim::LinePacer> ownedLine;
    ChainClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    ClsKdxDiagnostic diagnostic{driver, delay, format};

    void start(const std::string& optionText) {
        sim::SimOptions options;
        std::string error;
        ASSERT_TRUE(sim::ParseSimOptions(optionText, options, error)) << error;
        owned = std::make_unique<sim::KdxChain>(options);
        chain = owned.get();
        ownedLine = std::make_unique<sim::LinePacer>(options.baud, options);
        line = ownedLine.get();
        port.clear();
        driver.AttachTable(SimTable());
    }
    long elapsedMs() const {
        return static_cast<long>(
            std::chrono::duration_cast<std::chrono::milliseconds>(clock.t.time_since_epoch())
                .count());
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

// The quick mode ends each wait once the reply is whole. The report must not change by a byte,
// whatever the chain, and also when the controller answers late and slowly or pauses inside its
// replies, so long as it does so within the fixed waits.
TEST_F(SimFixture, BothTimingsGiveTheSameReport) {
    const char* chains[] = {
        "arrangement=1",
        "arrangement=2",
        "arrangement=2+1",
        "arrangement=1+2",
        "arrangement=1+1",
        "arrangement=2+2",
        "arrangement=2,firmware=1.21",
        "arrangement=2+2,echo=on",
        "arrangement=2+2,silent=4",
        "arrangement=2+2,reply-delay=30,char-spacing=5",
        "arrangement=2,reply-pause=40",
    };
    for (const char* options : chains) {
        std::string reports[2];
        long took[2] = {};
        for (const bool exact : {false, true}) {
            start(options);
            chain->receive("C,setjA1M5,setJA1M7,,rsm");
            chain->receive(",PM1,C,S1M2000,I1M-400,");
            chain->setLimit(1, sim::LimitSide::Minus, true);
            ReplyTiming timing;
            timing.exact = exact;
            ClsKdxDiagnostic scanner(driver, delay, format, nullptr, &timing);
            DiagnosticBoxes boxes;
            const long before = elapsedMs();
            const auto result = RunCompleteDiagnostic(scanner, boxes);
            took[exact] = elapsedMs() - before;
            reports[exact] = result.report;
            EXPECT_EQ(result.exactFrom, "") << options;
        }
        EXPECT_EQ(reports[false], reports[true]) << options;
        EXPECT_NE(reports[false].find("S1M2000,"), std::string::npos) << options;
        EXPECT_LT(took[false], took[true] / 2) << options << ": the quick mode ends waits early";
    }
}
