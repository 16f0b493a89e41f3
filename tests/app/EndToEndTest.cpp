// The program as a user starts it, with the virtual controller on Com1.
#include "AppFixture.h"

#include "core/AtomicFile.h"
#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "scripts/ProgramMemory.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/ScriptMenus.h"
#include "sim/PtyHost.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressDialog>
#include <QTimer>

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

// A long script goes with its progress in view and ends early at the main window's Stop or at
// the progress window's Cancel; the controller answers the next query at once, with the port
// left open. A script larger than the controller's program memory never leaves the program.
TEST_F(EndToEnd, ALongScriptShowsItsProgressAndStopsOnStopOrCancel) {
    ASSERT_TRUE(start());
    app->delay.TimeDelay(0.3);
    auto* editor = app->Form<FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
    std::string script; // about 12 s at 9600 baud; "C" keeps each program small
    for (int i = 0; i < 300; ++i) {
        script += i % 50 == 0 ? "C,\r\n" : "S1M2000,\t\t;Motor 1 speed 2000 steps/sec\r\n";
    }
    ASSERT_TRUE(writeFileAtomically(folder.file("long.txt"), script));
    const struct {
        const char* how;
        std::function<void()> send;
        std::function<void()> stop;
    } cases[] = {
        {"Stop during the test",
         [&] {
             editor->SetText(script);
             editor->PicTestScript_MouseDown();
         },
         [&] { app->mdi->PicStopButton_MouseDown(); }},
        {"Cancel during the transfer",
         [&] {
             prompts.files = {folder.file("long.txt")};
             TransferScript();
         },
         [&] { app->mdi->findChild<QProgressDialog*>("DlgSendProgress")->cancel(); }},
    };
    for (const auto& c : cases) {
        long before = 0;
        controller->withChain([&](sim::KdxChain& chain) { before = chain.bytesHeard(); });
        std::string shown;
        QTimer::singleShot(1500, [&] {
            const auto* progress = app->mdi->findChild<QProgressDialog*>("DlgSendProgress");
            shown = progress != nullptr && progress->isVisible()
                        ? progress->labelText().toStdString()
                        : "no progress shown";
            c.stop();
        });
        c.send();
        long heard = 0;
        controller->withChain([&](sim::KdxChain& chain) { heard = chain.bytesHeard() - before; });
        EXPECT_GT(heard, 500) << c.how;
        EXPECT_LT(heard, 4000) << c.how << ": the rest was never sent";
        EXPECT_TRUE(shown.starts_with("Sent ") && shown.ends_with(" left at 9600 baud"))
            << c.how << ": " << shown;
        EXPECT_EQ(app->mdi->findChild<QProgressDialog*>("DlgSendProgress"), nullptr);
        EXPECT_TRUE(setPort()->ChkPortOpen()->isChecked());
        app->kdx.ClearPortChars();
        app->kdx.SendCommandsToPort("getD0,");
        app->delay.TimeDelay(0.15);
        EXPECT_EQ(app->kdx.ReadReplyAndClearPort(), "1.22\r") << c.how;
    }

    std::string tooLarge;
    for (int i = 0; i < 65; ++i) {
        tooLarge += "I1M400,\r\n";
    }
    editor->SetText(tooLarge);
    prompts.asked.clear();
    long before = 0;
    controller->withChain([&](sim::KdxChain& chain) { before = chain.bytesHeard(); });
    editor->PicTestScript_MouseDown();
    app->delay.TimeDelay(0.1);
    controller->withChain(
        [&](sim::KdxChain& chain) { EXPECT_EQ(chain.bytesHeard(), before) << "not even the C,"; });
    ASSERT_EQ(prompts.asked.size(), 1u);
    EXPECT_EQ(prompts.asked[0], "Script Editor: " + MemoryProblem(tooLarge));
}
