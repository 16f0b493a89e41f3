#include "link/ClsDriverKdx.h"
#include "link/ClsKdxCommands.h"
#include "support/FakeText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

using namespace korval;

namespace {

// A driver that records every call, with the virtual time it came at, and answers what the
// test sets.
struct Recorder {
    std::vector<std::string> calls;
    std::int32_t portState = 1;
    std::int32_t formState = 1;
    std::int32_t closeCountdown = 0;
    std::string status = "ONLINEREADY";
    std::string reply;
    std::int64_t lastLimit = -1;
    double now = 0;
} rec;

void log(const std::string& call) {
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "@%.1f ", rec.now);
    rec.calls.push_back(stamp + call);
}

KdxDriverTable fakeTable() {
    KdxDriverTable t;
    t.OpenPort = [](std::int32_t p, std::int32_t b) {
        log("OpenPort " + std::to_string(p) + " " + std::to_string(b));
        return std::int32_t{0};
    };
    t.IsPortOpen = [] {
        log("IsPortOpen");
        return rec.portState;
    };
    t.ClosePort = [] {
        log("ClosePort");
        return std::int32_t{1};
    };
    t.IsFormOpen = [] { return rec.formState; };
    t.SearchForChars = [](const char* s, std::int32_t n) {
        return std::int32_t{FakeArg(s, n) == "^" ? 1 : 7};
    };
    t.VerifyControlStatus = [](std::int32_t* n) {
        log("VerifyControlStatus");
        return FakeText(rec.status, n);
    };
    t.SendToPort = [](const char* s, std::int32_t n) {
        log("SendToPort " + FakeArg(s, n));
        return std::int32_t{1};
    };
    t.Online = [] {
        log("Online");
        return std::int32_t{1};
    };
    t.Offline = [] {
        log("Offline");
        return std::int32_t{1};
    };
    t.KillKdxProgram = [] {
        log("KillKdxProgram");
        return std::int32_t{1};
    };
    t.StopKdxProgram = [] {
        log("StopKdxProgram");
        return std::int32_t{1};
    };
    t.RunProgram = [] {
        log("RunProgram");
        return std::int32_t{1};
    };
    t.WaitForChar = [](const char* c, std::int32_t n, std::int64_t limit) {
        rec.lastLimit = limit;
        log("WaitForChar " + FakeArg(c, n));
        return std::int32_t{1};
    };
    t.RunProgramAndWaitForFinish = [](std::int64_t limit) {
        rec.lastLimit = limit;
        log("RunProgramAndWaitForFinish");
        return std::int32_t{1};
    };
    t.ClearPort = [] {
        log("ClearPort");
        return std::int32_t{1};
    };
    t.ReadAndThenClearFromPort = [](std::int32_t* n) {
        log("ReadAndThenClearFromPort");
        return FakeText(rec.reply, n);
    };
    t.CloseListenThread = [] {
        log("CloseListenThread");
        return rec.closeCountdown > 0 ? rec.closeCountdown-- : std::int32_t{0};
    };
    t.SetScanAbortStatus = [](std::int32_t) { return std::int32_t{5}; };
    t.FreeText = [](char* s) { std::free(s); };
    return t;
}

struct VirtualClock : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        t += budget;
        rec.now = std::chrono::duration<double>(t.time_since_epoch()).count();
    }
};

struct FacadeFixture : ::testing::Test {
    VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx kdx{delay};
    std::vector<std::string> events;

    FacadeFixture() {
        rec = Recorder{};
        kdx.AttachTable(fakeTable());
        kdx.PortChanged.subscribe([this](const std::string& p, const std::string& b) {
            events.push_back("PortChanged " + p + " " + b);
        });
        kdx.PortOpenOrClosed.subscribe(
            [this](const std::string& s) { events.push_back("PortOpenOrClosed " + s); });
        kdx.KdxChanged.subscribe(
            [this](const std::string& s) { events.push_back("KdxChanged " + s); });
    }
};

struct Lamp : LimitLamp {
    std::string state = "untouched";
    int refreshes = 0;
    void SetLit(bool lit) override { state = lit ? "red" : "red dim"; }
    void Refresh() override { ++refreshes; }
};

} // namespace

TEST_F(FacadeFixture, OperationsThatChangeTheStateReCheckItAfterATenthOfASecond) {
    const struct {
        const char* name;
        std::function<void()> call;
        std::vector<std::string> calls;
    } cases[] = {
        {"BringOnline",
         [&] { kdx.BringOnline(); },
         {"@0.0 SendToPort Q", "@0.0 Online", "@0.1 VerifyControlStatus"}},
        {"BringOffline", [&] { kdx.BringOffline(); }, {"@0.0 Offline", "@0.1 VerifyControlStatus"}},
        {"KillProgram",
         [&] { kdx.KillProgram(); },
         {"@0.0 KillKdxProgram", "@0.1 VerifyControlStatus"}},
        {"WaitForCharacter",
         [&] { kdx.WaitForCharacter("^", 1); },
         {"@0.0 WaitForChar ^", "@0.1 VerifyControlStatus"}},
        {"RunKdxProgramAndWaitForFinish",
         [&] { kdx.RunKdxProgramAndWaitForFinish(1); },
         {"@0.0 RunProgramAndWaitForFinish", "@0.1 VerifyControlStatus"}},
        {"RunKdxProgram",
         [&] { kdx.RunKdxProgram(); },
         {"@0.0 RunProgram", "@0.0 VerifyControlStatus"}},
        {"StopProgram", [&] { kdx.StopProgram(); }, {"@0.0 StopKdxProgram"}},
    };
    for (const auto& c : cases) {
        clock.t = {};
        rec.now = 0;
        rec.calls.clear();
        events.clear();
        c.call();
        EXPECT_EQ(rec.calls, c.calls) << c.name;
        const bool verified = c.calls.back().ends_with("VerifyControlStatus");
        EXPECT_EQ(events, verified ? std::vector<std::string>{"KdxChanged ONLINEREADY"}
                                   : std::vector<std::string>{})
            << c.name;
    }
}

TEST_F(FacadeFixture, PortEventsFollowTheDriversAnswer) {
    const struct {
        std::int32_t state;
        bool result;
        std::vector<std::string> events;
    } cases[] = {
        {1, true, {"PortOpenOrClosed Open", "KdxChanged ONLINEREADY"}},
        {0, false, {"PortOpenOrClosed Closed", "KdxChanged ONLINEREADY"}},
        {2, false, {"KdxChanged ONLINEREADY"}},
    };
    for (const auto& c : cases) {
        events.clear();
        rec.portState = c.state;
        EXPECT_EQ(kdx.IsSerialPortOpen(), c.result);
        EXPECT_EQ(events, c.events);
    }
}

TEST_F(FacadeFixture, OpeningAPortThatFailsStillReportsTheRequestThenClosed) {
    rec.portState = 0;
    rec.status = "ERRORCOMMUNICATIONS";
    kdx.PortOpen(7, 19200);
    EXPECT_EQ(events, (std::vector<std::string>{"PortChanged 7 19200", "PortOpenOrClosed Closed",
                                                "KdxChanged ERRORCOMMUNICATIONS"}));
    EXPECT_EQ(kdx.LastStatus, "ERRORCOMMUNICATIONS");
}

TEST_F(FacadeFixture, TruthValuesTimeLimitsAndResultsOfTheirOwn) {
    rec.formState = 1;
    EXPECT_TRUE(kdx.IsDebugWindowOpen());
    rec.formState = -1;
    EXPECT_FALSE(kdx.IsDebugWindowOpen()) << "only 1 is true";
    EXPECT_TRUE(kdx.SearchForCharsAtPort("^"));
    EXPECT_FALSE(kdx.SearchForCharsAtPort("x"));
    kdx.WaitForCharacter("^", 0);
    EXPECT_EQ(rec.lastLimit, 0);
    kdx.RunKdxProgramAndWaitForFinish(3);
    EXPECT_EQ(rec.lastLimit, 30000);
    EXPECT_EQ(kdx.SetAbortStatus(1), 0) << "whatever the driver answers";
    const std::string mine = "C,R";
    kdx.SendCommandsToPort(mine);
    EXPECT_EQ(mine, "C,R");
    EXPECT_EQ(rec.calls.back(), "@0.2 SendToPort C,R");
}

TEST_F(FacadeFixture, ClosingTheReceiveThreadRepeatsUntilTheDriverSaysClosed) {
    rec.closeCountdown = 2;
    EXPECT_EQ(kdx.ClosePortReceiveThread(), 0);
    EXPECT_EQ(std::count_if(rec.calls.begin(), rec.calls.end(),
                            [](const std::string& c) { return c.ends_with("CloseListenThread"); }),
              3);
}

TEST_F(FacadeFixture, LimitLampsFollowTheMaskBitsOfTheirAxis) {
    const struct {
        std::string reply;
        int axis;
        const char* first;
        const char* second;
    } cases[] = {
        {"\x06", 1, "red dim", "red"},   // bits 1 and 2: limit 1 plus, limit 2 minus
        {"^?\x06", 2, "red", "red dim"}, // "^" and an echoed "?" are not the mask
        {"\xC0", 4, "red", "red"},       // the two highest bits
        {"^??^", 1, "untouched", "untouched"},
        {"\x06", 5, "untouched", "untouched"},
    };
    for (const auto& c : cases) {
        rec.calls.clear();
        rec.reply = c.reply;
        Lamp first;
        Lamp second;
        kdx.GetLimitState(c.axis, &first, &second);
        EXPECT_EQ(first.state, c.first) << c.axis;
        EXPECT_EQ(second.state, c.second) << c.axis;
        const bool refreshed = c.reply != "^??^";
        EXPECT_EQ(first.refreshes, refreshed ? 1 : 0);
        EXPECT_EQ(rec.calls.size(), 3u); // ClearPort, SendToPort ?, ReadAndThenClearFromPort
    }
    rec.calls.clear();
    Lamp only;
    kdx.GetLimitState(1, &only, nullptr);
    EXPECT_TRUE(rec.calls.empty()) << "no lamp, no traffic";
}

TEST(DriverLibrary, LoadsFromTheDriverFolderAndRefusesOtherFiles) {
    SleepingWaitContext context;
    ClsTimeDelay delay(context);
    ClsDriverKdx kdx(delay);
    const std::string folder = KORVAL_DRIVER_DIR;
    EXPECT_EQ(kdx.UnLoadDriver(), 0) << "nothing loaded: the release loop still runs once";
    EXPECT_EQ(kdx.LoadDriver(folder + "/Tavrin KDX Commands.so"), 0) << "not a driver";
    EXPECT_EQ(kdx.LoadDriver(folder + "/missing.so"), 0);
    const auto notALibrary = folder + "/not-a-library.so";
    std::ofstream(notALibrary) << "text";
    EXPECT_EQ(kdx.LoadDriver(notALibrary), 0);

    ASSERT_NE(kdx.LoadDriver(folder + "/Tavrin KDX Serial Driver.so"), 0);
    EXPECT_TRUE(kdx.AreDriverFunctionsEnabled());
    EXPECT_EQ(kdx.UnLoadDriver(), 0);
    EXPECT_EQ(kdx.DriverModule, 0);
    ASSERT_NE(kdx.LoadDriver(folder + "/Tavrin KDX Serial Driver.so"), 0);
    EXPECT_FALSE(kdx.AreDriverFunctionsEnabled()) << "a fresh load lifts no escape";
    ASSERT_NE(kdx.LoadDriver(folder + "/Tavrin KDX Serial Driver.so"), 0);
    EXPECT_TRUE(kdx.AreDriverFunctionsEnabled()) << "loading again does";
    EXPECT_EQ(kdx.VerifyStatus(), "ERRORCOMMUNICATIONS") << "no port is open";
    kdx.UnLoadDriver();
    std::remove(notALibrary.c_str());
}

TEST(CommandsLibrary, FormatsThroughTheLoadedLibraryOnly) {
    ClsKdxCommands commands;
    EXPECT_EQ(commands.AutoFormatCommands("C,R", 0), "") << "nothing loaded";
    EXPECT_EQ(commands.LoadDll(std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Serial Driver.so"), 0);
    ASSERT_NE(commands.LoadDll(std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Commands.so"), 0);
    EXPECT_EQ(commands.AutoFormatCommands("C,R", 0), "C,\rR\r");
    EXPECT_EQ(commands.AutoFormatCommands("F", 1), "F,;KDX Online with Echo Off\r");
    EXPECT_EQ(commands.AutoFormatCommands("C,R", 2), "");
    EXPECT_EQ(commands.UnLoadDll(), 0);
}
