// The program as a user starts it, with the virtual controller on Com1.
#include "AppFixture.h"

#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxToolSetPort.h"

#include <QCheckBox>
#include <QLabel>

using namespace korval;
using namespace korval::test;

namespace {

struct EndToEnd : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        installWithController();
    }
    QString caption() const { return app->mdi->LblStatusKdx()->text(); }
};

} // namespace

TEST_F(EndToEnd, StartUpReachesTheControllerAndThePanelFollowsIt) {
    ASSERT_TRUE(start());
    app->delay.TimeDelay(0.3);
    EXPECT_EQ(caption(), "ONLINEREADY");
    EXPECT_TRUE(app->mdi->PicKdxPower()->lit());
    EXPECT_TRUE(app->mdi->PicKdxOnline()->lit());
    EXPECT_EQ(app->mdi->findChild<QLabel*>("LblStatusPort")->text(), "Port Status: Open");

    app->mdi->PicLocalButton_MouseDown();
    EXPECT_EQ(caption(), "OFFLINEREADY");
    EXPECT_FALSE(app->mdi->PicKdxOnline()->lit());
    app->mdi->PicOnlineButton_MouseDown();
    EXPECT_EQ(caption(), "ONLINEREADY");

    // A program runs: the panel shows it busy, and ready again when it ends.
    app->kdx.SendCommandsToPort("C,S1M2000,I1M1000,");
    app->delay.TimeDelay(0.1);
    app->mdi->PicRunButton_MouseDown();
    EXPECT_EQ(caption(), "BUSY");
    app->delay.TimeDelay(1.5);
    EXPECT_EQ(caption(), "ONLINEREADY") << "the end of the run is reported";

    // The controller goes silent: no contact, and the program stays usable.
    setSilent(true);
    app->delay.TimeDelay(1.5);
    EXPECT_EQ(caption(), "ERRORCOMMUNICATIONS");
    EXPECT_FALSE(app->mdi->PicKdxPower()->lit());
    setSilent(false);
    app->mdi->PicStatusButton_MouseDown();
    EXPECT_EQ(caption(), "ONLINEREADY");
}

TEST_F(EndToEnd, AutoDetectFindsTheControllerAndOpensItsPort) {
    ASSERT_TRUE(start());
    setPort()->ChkPortOpen()->setChecked(false);
    EXPECT_EQ(app->mdi->findChild<QLabel*>("LblStatusPort")->text(), "Port Status: Closed");
    app->mdi->Menu("MnuToolsAutoDetect")->trigger();
    EXPECT_TRUE(setPort()->ChkPortOpen()->isChecked());
    EXPECT_EQ(app->mdi->findChild<QLabel*>("LblPortCurrent")->text(), "Port: Com1, Baud: 9600");
    EXPECT_EQ(caption(), "ONLINEREADY");
}
