#include "AppFixture.h"
#include "support/FakeText.h"

#include "core/ClsReadWriteFile.h"
#include "core/ui/MdiKorval.h"

#include <QLabel>

#include <cstring>

using namespace korval;
using namespace korval::test;

namespace {

// A driver that records what the program asks of it, for the order of things.
struct Record {
    std::vector<std::string> calls;
    std::string memory;
    std::string settingsFile;
    bool settingsWritten = false;
    bool escaped = false;
} rec;

void log(const std::string& call) {
    // Notes, at each call, whether the settings were on disk yet.
    if (!rec.settingsWritten && !rec.settingsFile.empty()) {
        const auto text = readWholeFile(rec.settingsFile).value_or("");
        rec.settingsWritten = text.find("[MdiKorval]") != std::string::npos;
        if (rec.settingsWritten) {
            rec.calls.push_back("(settings saved)");
        }
    }
    rec.calls.push_back(call);
}

KdxDriverTable recordingTable() {
    KdxDriverTable t;
    t.FreeText = [](char* s) { std::free(s); };
    t.CloseListenThread = [] {
        log("CloseListenThread");
        return std::int32_t{0};
    };
    t.HideForm = [] {
        log("HideForm");
        return std::int32_t{1};
    };
    t.FunctionEscapeTrue = [] {
        rec.escaped = true;
        log("FunctionEscapeTrue");
        return std::int32_t{1};
    };
    t.AreAllFunctionsEnabled = [] { return rec.escaped ? std::int32_t{0} : std::int32_t{1}; };
    t.Offline = [] {
        log("Offline");
        return std::int32_t{1};
    };
    t.ClosePort = [] {
        log("ClosePort");
        return std::int32_t{1};
    };
    t.IsPortOpen = [] { return std::int32_t{0}; };
    t.VerifyControlStatus = [](std::int32_t* n) { return FakeText("ONLINEREADY", n); };
    t.GetCurrentProgramMemory = [](std::int32_t* n) {
        log("GetCurrentProgramMemory");
        return FakeText(rec.memory, n);
    };
    t.GetCurrentProgramNumber = [](std::int32_t* n) {
        log("GetCurrentProgramNumber");
        return FakeText("PM2\r\n", n);
    };
    t.RunProgram = [] {
        log("RunProgram");
        return std::int32_t{1};
    };
    return t;
}

struct ButtonsFixture : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        linkCom1("/nonexistent/tty");
        withDriverFolder();
        withConfig();
        ASSERT_TRUE(start());
        rec = Record{};
        app->kdx.AttachTable(recordingTable());
    }
};

} // namespace

TEST_F(ButtonsFixture, TheRunButtonRefusesAnEmptyProgramAndRunsAnyOther) {
    const struct {
        const char* memory;
        bool runs;
    } cases[] = {{"256\r", false}, {"M256", false}, {"", true}, {"200\r", true}};
    for (const auto& c : cases) {
        rec.calls.clear();
        prompts.asked.clear();
        rec.memory = c.memory;
        app->mdi->PicRunButton_MouseDown();
        const bool ran =
            std::find(rec.calls.begin(), rec.calls.end(), "RunProgram") != rec.calls.end();
        EXPECT_EQ(ran, c.runs) << c.memory;
        if (!c.runs) {
            EXPECT_EQ(prompts.asked,
                      std::vector<std::string>{
                          "Error: Running Program: No commands in Program 2 to run"});
        }
        EXPECT_FALSE(app->runFlag);
    }
}

TEST_F(ButtonsFixture, ShutdownSavesFirstThenTakesTheLinkDownInItsOrder) {
    rec.settingsFile = settingsFile();
    program->Shutdown();
    const std::vector<std::string> expected = {"CloseListenThread",  "HideForm", "(settings saved)",
                                               "FunctionEscapeTrue", "Offline",  "ClosePort"};
    std::size_t at = 0;
    for (const auto& call : rec.calls) {
        if (at < expected.size() && call == expected[at]) {
            ++at;
        }
    }
    EXPECT_EQ(at, expected.size()) << "calls were out of order";
    EXPECT_EQ(app->kdx.DriverModule, 0);
    QCoreApplication::processEvents();
    program.reset();
}
