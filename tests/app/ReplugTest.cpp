// A port whose device goes away and comes back, as an adapter pulled out and plugged in again:
// a pseudo-terminal closed, and a new one linked under the same number.
#include "AppFixture.h"

#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "support/PtyPeer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <chrono>

using namespace korval;
using namespace korval::test;

namespace {

struct ReplugFixture : AppFixture {
    std::unique_ptr<PtyPeer> peer;

    void SetUp() override {
        AppFixture::SetUp();
        plugIn();
        withDriverFolder();
        withConfig();
        ASSERT_TRUE(start());
        ASSERT_TRUE(waitFor([&] { return portStatus() == "Port Status: Open"; }));
    }
    void TearDown() override {
        AppFixture::TearDown();
        peer.reset();
    }
    void plugIn() {
        peer = std::make_unique<PtyPeer>(answerStatus([] { return std::string("R"); }));
        linkCom1(peer->device());
    }
    bool waitFor(const std::function<bool()>& done) {
        const auto give = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (!done()) {
            if (std::chrono::steady_clock::now() > give) {
                return false;
            }
            app->delay.TimeDelay(0.05);
        }
        return true;
    }
    QString label(const char* name) const { return app->mdi->findChild<QLabel*>(name)->text(); }
    QString portStatus() const { return label("LblStatusPort"); }
};

} // namespace

TEST_F(ReplugFixture, APortThatVanishesAndReturnsGoesBackOnLineByItself) {
    const auto first = peer->device();
    peer.reset(); // pulled out
    ASSERT_TRUE(waitFor([&] { return portStatus() == "Port Status: Closed"; }));
    EXPECT_EQ(label("LblStatusKdx"), "ERRORCOMMUNICATIONS");
    EXPECT_FALSE(app->mdi->PicKdxPower()->lit());
    EXPECT_EQ(label("LblStatusNote").toStdString(),
              "Com1 (" + first + ") went away: waiting for it to come back");
    EXPECT_TRUE(setPort()->ChkPortOpen()->isChecked()) << "the user's wish stands";
    EXPECT_FALSE(setPort()->CmbSerialPort()->isEnabled());

    plugIn(); // back, under the same number
    ASSERT_TRUE(waitFor([&] { return label("LblStatusKdx") == "ONLINEREADY"; }));
    EXPECT_EQ(portStatus(), "Port Status: Open");
    EXPECT_EQ(label("LblStatusNote"), "Com1 came back: opened again and brought on line");
    EXPECT_NE(peer->received().find("QF,"), std::string::npos) << "brought on line";
    EXPECT_TRUE(setPort()->CmbSerialPort()->itemText(1).startsWith(
        QString::fromStdString("Com1  " + std::filesystem::canonical(peer->device()).string())))
        << "the list names the new device";
}

TEST_F(ReplugFixture, APortClosedByTheUserMeanwhileStaysClosed) {
    peer.reset();
    ASSERT_TRUE(waitFor([&] { return portStatus() == "Port Status: Closed"; }));
    setPort()->ChkPortOpen()->setChecked(false); // the user closes it
    EXPECT_TRUE(setPort()->CmbSerialPort()->isEnabled());
    EXPECT_EQ(label("LblStatusNote"), "");
    plugIn();
    app->delay.TimeDelay(1.5);
    EXPECT_EQ(portStatus(), "Port Status: Closed");
    EXPECT_EQ(peer->received(), "") << "nothing opened the port";
}
