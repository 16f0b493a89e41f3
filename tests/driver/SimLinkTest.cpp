// Both libraries from the Driver folder, talking through a real pseudo-terminal to the virtual
// controller: what the program relies on from the driver, end to end.
#include "diagnostics/ClsKdxDiagnostic.h"
#include "link/PortMap.h"

#include "support/SimLink.h"
#include "support/TempFolder.h"

#include <QCoreApplication>

using namespace korval;
using korval::testing::SimLink;

TEST_F(SimLink, TheScanFindsTheControllerAt19200OnPort7Of16) {
    TempFolder ports;
    qputenv("KORVAL_PORTS", QByteArray::fromStdString(ports.path()));
    const PortMap map(ports.path());
    startSim("baud=19200");
    for (int n = 1; n <= 16; ++n) {
        map.registerPort(n, n == 7 ? host->device() : "/nonexistent/tty" + std::to_string(n));
    }
    std::vector<std::string> progress;
    auto& box = mailbox.addBox(Mailbox::Mode::Replace,
                               [&](const std::string& t) { progress.push_back(t); });
    kdx.SetAbortStatus(0);
    EXPECT_TRUE(kdx.DetectKdx(16, box.sink()));
    mailbox.drain();
    EXPECT_EQ(kdx.GetPort(), 7);
    EXPECT_EQ(kdx.GetBaud(), 19200);
    EXPECT_TRUE(kdx.IsSerialPortOpen()) << "the port found is left open";
    ASSERT_FALSE(progress.empty());
    EXPECT_EQ(progress.back(), "Found KDX on Com7 at 19200 baud");
    EXPECT_NE(std::find(progress.begin(), progress.end(), "Com7 at 9600 baud..."), progress.end());
    qunsetenv("KORVAL_PORTS");
}

TEST_F(SimLink, AnAbortedScanStopsAtOnce) {
    TempFolder ports;
    qputenv("KORVAL_PORTS", QByteArray::fromStdString(ports.path()));
    startSim();
    const PortMap map(ports.path());
    for (int n = 1; n <= 16; ++n) {
        map.registerPort(n, n == 16 ? host->device() : "/nonexistent/tty" + std::to_string(n));
    }
    std::vector<std::string> progress;
    auto& box = mailbox.addBox(Mailbox::Mode::Replace,
                               [&](const std::string& t) { progress.push_back(t); });
    kdx.SetAbortStatus(1); // the abort button, pressed while the scan shows its progress
    EXPECT_FALSE(kdx.DetectKdx(16, box.sink()));
    mailbox.drain();
    EXPECT_EQ(progress, std::vector<std::string>{"Scan aborted"});
    kdx.SetAbortStatus(0);
    EXPECT_TRUE(kdx.DetectKdx(16, box.sink()));
    EXPECT_EQ(kdx.GetPort(), 16);
    qunsetenv("KORVAL_PORTS");
}

TEST_F(SimLink, EachStatusWordAsTheControllerReportsIt) {
    startSim();
    online();
    kdx.SendCommandsToPort("C,S1M1000,I1M5000,R");
    delay.TimeDelay(0.2);
    EXPECT_EQ(kdx.VerifyStatus(), "BUSY");
    kdx.KillProgram();
    EXPECT_EQ(kdx.LastStatus, "ONLINEREADY");
    kdx.BringOffline();
    EXPECT_EQ(kdx.LastStatus, "OFFLINEREADY");
    kdx.BringOnline();
    // Two of the error codes: the status word spells each out, and a kill clears it.
    const struct {
        char code;
        const char* word;
    } errors[] = {{'B', "ERRORBUSS"}, {'N', "ERRORNESTEDLOOP"}};
    for (const auto& e : errors) {
        host->withChain([&](sim::KdxChain& chain) { chain.injectError(e.code); });
        delay.TimeDelay(0.05); // the error's own code in the stream comes first
        EXPECT_EQ(kdx.VerifyStatus(), e.word) << e.code;
        kdx.KillProgram(); // clears the error
        EXPECT_EQ(kdx.LastStatus, "ONLINEREADY") << e.code;
    }
}

TEST_F(SimLink, AMotorSettingIsStoredOrRefusedAsTheControllerSays) {
    startSim("arrangement=2+1");
    online();
    EXPECT_EQ(kdx.SetMotorSetting(2, 4), 1);
    EXPECT_EQ(kdx.GetMotorSetting(2), 4);
    EXPECT_EQ(kdx.SetMotorSetting(4, 4), 0) << "a one-motor second controller: J";
    EXPECT_EQ(kdx.SetLimitSetting(1, -2), 1);
    EXPECT_EQ(kdx.GetLimitSetting(1), -2);
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
}

TEST_F(SimLink, AJogStreamsItsPositionUntilItIsStopped) {
    startSim();
    online();
    std::vector<long> positions;
    auto& target = mailbox.addBox(Mailbox::Mode::Replace, [&](const std::string& t) {
        positions.push_back(std::atol(t.c_str()));
    });
    kdx.Table().JogPositive(1, 3000, target.sink());
    delay.TimeDelay(0.8);
    EXPECT_EQ(kdx.VerifyStatus(), "JOGGING");
    kdx.StopProgram();
    delay.TimeDelay(0.5);
    mailbox.drain();
    ASSERT_GE(positions.size(), 3u);
    EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
    EXPECT_GT(positions.back(), 1000);
    const auto stoppedAt = kdx.GetCurrentMotorPosition(1);
    delay.TimeDelay(0.3);
    EXPECT_EQ(kdx.GetCurrentMotorPosition(1), stoppedAt) << "the jog has ended";
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
}

TEST_F(SimLink, ClosingThePortStopsAJogFirst) {
    startSim();
    online();
    kdx.Table().JogNegative(2, 2000, nullptr);
    delay.TimeDelay(0.3);
    kdx.PortClose();
    delay.TimeDelay(0.5); // the stop decelerates
    bool moving = true;
    host->withChain([&](sim::KdxChain& chain) { moving = chain.moving(2); });
    EXPECT_FALSE(moving) << "the jog was stopped before the line closed";
}

TEST_F(SimLink, EveryArrangementGivesItsMotorCounts) {
    const struct {
        const char* options;
        int actual;
        int possible;
    } cases[] = {
        {"arrangement=1", 1, 2},
        {"arrangement=2", 2, 2},
        {"arrangement=2+1", 3, 4},
        {"arrangement=2+2", 4, 4},
        {"arrangement=1+1", 11, 4},
        {"arrangement=1+2", -3, 4},
        {"arrangement=2,silent=2", 0, 2},
        {"arrangement=2+1,silent=2", 101, 4},
        {"arrangement=2+2,silent=2", 102, 4},
        {"arrangement=1+2,silent=4", 103, 4},
        {"arrangement=2+2,silent=4", 104, 4},
        {"arrangement=2+2,silent=24", 105, 4},
        {"arrangement=2,silent=1", 64, 2},
    };
    for (const auto& c : cases) {
        startSim(c.options);
        online();
        EXPECT_EQ(kdx.Table().ActualNumOfMotors(), c.actual) << c.options;
        EXPECT_EQ(kdx.Table().PossibleNumOfMotors(), c.possible) << c.options;
        kdx.PortClose();
        host.reset();
    }
}

// A mask is one byte of any value: "{", "}" and NUL reach their panels like any other, and the
// status asked next is not disturbed by them.
TEST_F(SimLink, MasksOfEveryByteValueReachTheirPanels) {
    using sim::LimitSide;
    startSim("arrangement=2+2");
    online();
    ClsKdxDiagnostic diagnostic(kdx, delay, [](const std::string& text, int) { return text; });
    // The lines that say "True", in order.
    const auto activated = [](const std::string& text) {
        std::string lines;
        for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos;
             at = end + 2) {
            if (text.compare(end - 4, 4, "True") == 0) {
                lines += text.substr(at, end - at - 16) + ";";
            }
        }
        return lines;
    };
    const struct {
        std::vector<std::pair<int, LimitSide>> held;
        const char* value;
        const char* active;
    } cases[] = {
        {{{2, LimitSide::Minus}, {4, LimitSide::Plus}}, "123", "Limit 2 -;Limit 4 +;"},
        {{{1, LimitSide::Plus}, {4, LimitSide::Plus}}, "125", "Limit 1 +;Limit 4 +;"},
        {{{1, LimitSide::Minus},
          {1, LimitSide::Plus},
          {2, LimitSide::Minus},
          {2, LimitSide::Plus},
          {3, LimitSide::Minus},
          {3, LimitSide::Plus},
          {4, LimitSide::Minus},
          {4, LimitSide::Plus}},
         "0",
         "Limit 1 -;Limit 1 +;Limit 2 -;Limit 2 +;Limit 3 -;Limit 3 +;Limit 4 -;Limit 4 +;"},
    };
    for (const auto& c : cases) {
        host->withChain([&](sim::KdxChain& chain) {
            for (int axis = 1; axis <= 4; ++axis) {
                for (const auto side : {LimitSide::Minus, LimitSide::Plus}) {
                    chain.setLimit(axis, side, false);
                }
            }
            for (const auto& [axis, side] : c.held) {
                chain.setLimit(axis, side, true);
            }
        });
        const auto text = diagnostic.GetLimitStates();
        EXPECT_EQ(text.substr(0, text.find("\r\n")), std::string("Actual value = ") + c.value);
        EXPECT_EQ(activated(text), c.active) << c.value;
        EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY") << c.value;
    }

    host->withChain([](sim::KdxChain& chain) {
        for (int axis = 1; axis <= 2; ++axis) {
            chain.setJogButton(axis, LimitSide::Minus, true);
            chain.setJogButton(axis, LimitSide::Plus, true);
        }
        for (int input = 1; input <= 4; ++input) {
            chain.setInput(input, true);
        }
    });
    EXPECT_EQ(diagnostic.GetUserInputStates().substr(0, 18), "Actual value = 0\r\n");
    host->withChain([](sim::KdxChain& chain) {
        chain.setJogButton(1, LimitSide::Minus, false);
        chain.setJogButton(1, LimitSide::Plus, false);
        chain.setJogButton(2, LimitSide::Plus, false);
        for (int input = 1; input <= 3; ++input) {
            chain.setInput(input, false);
        }
    });
    EXPECT_EQ(diagnostic.GetUserInputStates().substr(0, 20), "Actual value = 123\r\n");
    kdx.SendCommandsToPort("C,U5,U15,U35,R");
    delay.TimeDelay(0.2);
    EXPECT_EQ(diagnostic.GetUserOutputStates(), "Actual value = 11\r\n"
                                                "Output 1 On: True\r\n"
                                                "Output 2 On: True\r\n"
                                                "Output 3 On: False\r\n"
                                                "Output 4 On: True\r\n"
                                                "Bit 5 - Not Used\r\n"
                                                "Bit 6 - Not Used\r\n"
                                                "Bit 7 - Not Used\r\n"
                                                "Bit 8 - Not Used\r\n");
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
}
