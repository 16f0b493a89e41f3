// The driver on a real pseudo-terminal whose far end does what faulty lines and controllers do:
// answers mixed with other output, silence, floods, a hang-up.
#include "link/ClsDriverKdx.h"
#include "link/Mailbox.h"

#include "core/ui/QtWaitContext.h"
#include "support/PtyPeer.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

using namespace korval;
using namespace std::chrono;

namespace {

struct LineFixture : ::testing::Test {
    QtWaitContext wait;
    ClsTimeDelay delay{wait};
    ClsDriverKdx kdx{delay};
    Mailbox mailbox;
    Mailbox::Box& report = mailbox.addBox(Mailbox::Mode::Replace,
                                          [this](const std::string& t) { reports.push_back(t); });
    std::vector<std::string> reports;
    std::atomic<int> status{0};

    void SetUp() override {
        ASSERT_NE(kdx.LoadDriver(std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Serial Driver.so"),
                  0);
        kdx.EscapeDriverFunctionFalse(); // the library outlives each test: start clean
        kdx.SetCallbackReport(report.sink());
    }
    void TearDown() override {
        kdx.PortClose();
        kdx.SetCallbackReport(nullptr);
        mailbox.drain();
    }
    bool open(PtyPeer& peer) { return kdx.PortOpenByName(peer.device(), 9600) == 1; }
};

} // namespace

TEST_F(LineFixture, AStatusIsReadInPlaceAndWhatIsNotItGoesOnToTheProgram) {
    std::atomic<int> round{0};
    PtyPeer peer([&](std::string& received, speed_t) -> std::string {
        const auto at = received.find("V,");
        if (at == std::string::npos) {
            return {};
        }
        received.erase(0, at + 2);
        switch (round++) {
        case 0:
            return "R";
        case 1:
            return "^\xCBN{}"; // a run ends meanwhile; then bytes that are no part of the status
        default:
            return ""; // and then silence
        }
    });
    ASSERT_TRUE(open(peer));
    delay.TimeDelay(0.1);
    kdx.ClearPortChars();
    round = 0;
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
    EXPECT_EQ(kdx.VerifyStatus(), "ERRORNESTEDLOOP");
    delay.TimeDelay(0.05);
    EXPECT_EQ(kdx.ReadReplyFromPort(), "^{}") << "every byte that is not the status arrives";
    QCoreApplication::processEvents();
    mailbox.drain();
    EXPECT_NE(std::find(reports.begin(), reports.end(), "^"), reports.end()) << "reported too";
    const auto start = steady_clock::now();
    EXPECT_EQ(kdx.VerifyStatus(), "ERRORCOMMUNICATIONS");
    EXPECT_LT(steady_clock::now() - start, milliseconds(1500)) << "silence is noticed quickly";
}

// The program's query and its reply are never split by the driver's own exchanges: a status
// poll waits until the reply has come, however its bytes look.
TEST_F(LineFixture, ThePollerNeverTakesAByteOfTheProgramsReply) {
    PtyPeer peer([](std::string& received, speed_t) -> std::string {
        std::string out;
        for (;;) {
            const auto v = received.find("V,");
            const auto q = received.find("?,");
            if (v == std::string::npos && q == std::string::npos) {
                return out;
            }
            received.erase(0, std::min(v, q) + 2);
            out += "R"; // the status, or a mask that looks just like it
        }
    });
    ASSERT_TRUE(open(peer));
    for (int i = 0; i < 20; ++i) {
        kdx.ClearPortChars();
        kdx.SendCommandsToPort("?,");
        delay.TimeDelay(0.1);
        ASSERT_EQ(kdx.ReadReplyAndClearPort(), "R") << "round " << i;
        delay.TimeDelay(0.05 * (i % 8)); // now and then long enough for a poll
    }
}

TEST_F(LineFixture, TheEscapeReleasesABlockedWaitAtOnce) {
    PtyPeer peer(answerStatus([] { return std::string("B"); }));
    ASSERT_TRUE(open(peer));
    steady_clock::time_point escaped;
    QTimer::singleShot(150, [&] {
        escaped = steady_clock::now();
        kdx.EscapeDriverFunctionTrue();
    });
    const auto start = steady_clock::now();
    kdx.Table().WaitForChar("^", 1, 0); // no limit: only the escape ends it
    const auto released = steady_clock::now();
    EXPECT_GE(released - start, milliseconds(140));
    EXPECT_LT(released - escaped, milliseconds(200));
    EXPECT_FALSE(kdx.AreDriverFunctionsEnabled());
    EXPECT_EQ(kdx.SendCommandsToPort("getD0,"), 0) << "new calls are refused";
    kdx.EscapeDriverFunctionFalse();
    EXPECT_TRUE(kdx.AreDriverFunctionsEnabled());
    EXPECT_EQ(kdx.SendCommandsToPort("getD0,"), 1);
}

TEST_F(LineFixture, AProgramRunWaitsForTheCaretThatEndsIt) {
    PtyPeer peer(answerStatus([] { return std::string("B"); }));
    ASSERT_TRUE(open(peer));
    QTimer::singleShot(300, [&] { peer.send("^"); });
    const auto start = steady_clock::now();
    EXPECT_EQ(kdx.Table().RunProgramAndWaitForFinish(50000), 1);
    EXPECT_GE(steady_clock::now() - start, milliseconds(280));
    EXPECT_NE(peer.received().find('R'), std::string::npos);
    QCoreApplication::processEvents();
    mailbox.drain();
    EXPECT_NE(std::find(reports.begin(), reports.end(), "^"), reports.end()) << "reported too";

    const auto limited = steady_clock::now();
    EXPECT_EQ(kdx.Table().RunProgramAndWaitForFinish(3000), 0) << "0.3 s and no end";
    EXPECT_LT(steady_clock::now() - limited, milliseconds(800));
}

TEST_F(LineFixture, AFloodStaysBoundedAndTheLineStillAnswers) {
    PtyPeer peer(answerStatus([] { return std::string("R"); }));
    ASSERT_TRUE(open(peer));
    const std::string chunk(8192, 'x');
    for (int i = 0; i < 64; ++i) { // half a megabyte of noise
        peer.send(chunk);
    }
    delay.TimeDelay(0.5);
    EXPECT_LE(kdx.CountNumberCharsAtPort(), 65535);
    EXPECT_LE(kdx.TerminalGet().size(), 2u * 65535u);
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
    kdx.TerminalClean();
    EXPECT_LE(kdx.TerminalGet().size(), 32767u);
}

TEST_F(LineFixture, AHangUpReadsAsNoContactAndThePortOpensAgainLater) {
    auto peer = std::make_unique<PtyPeer>(answerStatus([] { return std::string("R"); }));
    ASSERT_TRUE(open(*peer));
    EXPECT_EQ(kdx.VerifyStatus(), "ONLINEREADY");
    peer.reset(); // the far end goes away
    delay.TimeDelay(0.3);
    EXPECT_EQ(kdx.VerifyStatus(), "ERRORCOMMUNICATIONS");
    EXPECT_FALSE(kdx.IsSerialPortOpen());
    mailbox.drain();
    const auto noContact = std::find(reports.begin(), reports.end(), "ERRORCOMMUNICATIONS");
    EXPECT_NE(noContact, reports.end());
    EXPECT_NE(std::find(noContact, reports.end(), KDX_REPORT_PORT_LOST), reports.end())
        << "the loss itself is reported, after the status";
    EXPECT_EQ(kdx.SendCommandsToPort("getD0,"), 0);

    PtyPeer again(answerStatus([] { return std::string("J"); }));
    ASSERT_TRUE(open(again));
    EXPECT_EQ(kdx.VerifyStatus(), "OFFLINEREADY");
}

TEST_F(LineFixture, AReplyOfEveryByteValueIsReadBackUnchanged) {
    std::string all;
    for (int b = 0; b < 256; ++b) {
        all += static_cast<char>(b);
    }
    PtyPeer peer([&all](std::string& received, speed_t) -> std::string {
        const auto at = received.find("dump,");
        if (at == std::string::npos) {
            return {};
        }
        received.erase(0, at + 5);
        return all;
    });
    ASSERT_TRUE(open(peer));
    delay.TimeDelay(0.1);
    kdx.ClearPortChars();
    kdx.TerminalClear();
    kdx.SendCommandsToPort("dump,");
    delay.TimeDelay(0.3);
    EXPECT_EQ(kdx.ReadReplyFromPort(), all);
    EXPECT_TRUE(kdx.SearchForCharsAtPort(std::string(1, '\0') + "\x01"));
    EXPECT_TRUE(kdx.TerminalGet().ends_with(all));
    kdx.RemoveCharsFromPort(all.substr(0, 128));
    EXPECT_EQ(kdx.ReadReplyAndClearPort(), all.substr(128));
}
