#include "AppFixture.h"

#include "core/ClsReadWriteFile.h"
#include "core/MenuTree.h"
#include "core/ui/FrmKdxAdmin.h"
#include "core/ui/FrmKdxToolSplash.h"
#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxDriverCallback.h"
#include "link/ui/FrmKdxToolSetPort.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>

using namespace korval;
using namespace korval::test;

namespace {

struct StartupFixture : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        linkCom1("/nonexistent/tty");
    }
};

} // namespace

TEST_F(StartupFixture, WithTheLibrariesInPlaceTheMainWindowComesUpWithEveryMenu) {
    withDriverFolder();
    withConfig();
    ASSERT_TRUE(start());
    auto* mdi = app->mdi;
    ASSERT_NE(mdi, nullptr);
    EXPECT_TRUE(mdi->isVisible());
    EXPECT_FALSE(app->splash->isVisible());
    EXPECT_TRUE(prompts.asked.empty()) << prompts.asked.front();
    for (const auto& e : MenuTree()) {
        const auto name = QString::fromLatin1(e.name.data(), static_cast<qsizetype>(e.name.size()));
        auto* action = mdi->Menu(name);
        ASSERT_NE(action, nullptr) << e.name;
        if (e.caption != "-") {
            EXPECT_EQ(action->text().toStdString(), e.caption) << e.name;
        }
        // Every entry has its window: none is left disabled for want of one.
        if (action->menu() == nullptr && !action->isSeparator()) {
            EXPECT_TRUE(mdi->HasHandler(name)) << e.name;
        }
    }
    EXPECT_TRUE(mdi->Menu("MnuToolsVirtualJog")->isEnabled());
    EXPECT_TRUE(mdi->Button("PicVirtualJog")->isEnabled());
    EXPECT_TRUE(mdi->Menu("MnuToolsTerminal")->isEnabled());
    EXPECT_TRUE(mdi->Button("PicTerminal")->isEnabled());
    EXPECT_TRUE(mdi->Menu("MnuToolsAutoDetect")->isEnabled());
    // Com1 at 9600 was tried and is not there.
    EXPECT_EQ(mdi->findChild<QLabel*>("LblPortCurrent")->text(), "Port: Com1, Baud: 9600");
    EXPECT_EQ(mdi->findChild<QLabel*>("LblStatusPort")->text(), "Port Status: Closed");
    EXPECT_EQ(mdi->findChild<QLabel*>("LblStatusPort")->palette().color(QPalette::WindowText),
              QColor(255, 0, 0));
    EXPECT_FALSE(setPort()->ChkPortOpen()->isChecked());
    EXPECT_TRUE(setPort()->CmbSerialPort()->isEnabled());
    EXPECT_EQ(readWholeFile(settingsFile()).value_or(""), "[Run]\r\nTimes=2\r\n");
}

TEST_F(StartupFixture, AMissingDriverIsLocatedOrTheProgramEnds) {
    withConfig();
    // Cancel: no message, the program ends.
    EXPECT_FALSE(start());
    EXPECT_EQ(prompts.asked, std::vector<std::string>{"open Locate 'Tavrin KDX Serial Driver.so'"});
    program.reset();

    // Nothing chosen, Yes to go on, then the real files.
    prompts.asked.clear();
    prompts.files = {std::string(), std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Serial Driver.so",
                     std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Commands.so"};
    prompts.answers = {Prompts::Answer::Yes};
    EXPECT_TRUE(start());
    ASSERT_GE(prompts.asked.size(), 4u);
    EXPECT_EQ(prompts.asked[1], "Error: KDX Driver Missing: Program cannot operate without the "
                                "driver\r\n\r\nDo you wish to continue?");
    EXPECT_EQ(prompts.asked[3], "open Locate 'Tavrin KDX Commands.so'");
    stop();

    // No ends it.
    prompts.files = {std::string()};
    prompts.answers = {Prompts::Answer::No};
    EXPECT_FALSE(start());
}

TEST_F(StartupFixture, SettingsSurviveARestartAndCountTheRuns) {
    firstRun = true;
    withDriverFolder();
    withConfig();
    ASSERT_TRUE(start());
    setPort()->CmbBaudRate()->setCurrentIndex(3);
    setPort()->CmbSerialPort()->setCurrentIndex(7);
    EXPECT_FALSE(app->replyTiming.exact);
    setPort()->ChkExactTiming()->setChecked(true);
    app->Form<FrmKdxAdmin>("FrmKdxAdmin")
        ->findChild<QCheckBox*>("ChkToolsTerminal")
        ->setChecked(true);
    EXPECT_FALSE(app->mdi->Menu("MnuToolsTerminal")->isVisible());
    stop();
    const auto saved = readWholeFile(settingsFile()).value_or("");
    EXPECT_NE(saved.find("[FrmKdxToolSetPort]\r\n"), std::string::npos) << saved;
    EXPECT_NE(saved.find("\tCmbBaudRate.ListIndex=3\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\tChkToolsTerminal.Value=1\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\tMnuToolsSetUpAxis1.Enabled=False\r\n"), std::string::npos);

    ASSERT_TRUE(start());
    EXPECT_EQ(setPort()->CmbBaudRate()->currentIndex(), 3);
    EXPECT_TRUE(app->replyTiming.exact) << "\"Exact timing\" comes back and takes effect";
    EXPECT_EQ(app->mdi->findChild<QLabel*>("LblPortCurrent")->text(), "Port: Com7, Baud: 38400")
        << "start-up opens the restored port";
    EXPECT_FALSE(app->mdi->Menu("MnuToolsTerminal")->isVisible()) << "the hiding comes back";
    EXPECT_EQ(app->iniFile.ProfileGetItem("Run", "Times", "", settingsFile()), "1");
}

TEST_F(StartupFixture, TheAdministratorPasswordIsReadInUpperCase) {
    withDriverFolder();
    withConfig();
    ASSERT_TRUE(start());
    prompts.inputs = {"wrong", "", "marigo"};
    for (int i = 0; i < 3; ++i) {
        app->mdi->Menu("MnuToolsAdminKorvalSettings")->trigger();
        EXPECT_EQ(app->Form<FrmKdxAdmin>("FrmKdxAdmin")->IsShown(), i == 2) << i;
    }
    EXPECT_EQ(prompts.asked.back(), "input KORVAL Password: Enter Password");
}

TEST_F(StartupFixture, ReportsFromTheDriverDriveTheStatusPanel) {
    withDriverFolder();
    withConfig();
    ASSERT_TRUE(start());
    auto& report = app->Form<FrmKdxDriverCallback>("FrmKdxDriverCallback")->StatusReport();
    const KdxSink* sink = report.sink();
    const std::string code = "J";
    sink->write(sink->context, code.data(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(app->mdi->LblStatusKdx()->text(), "OFFLINEREADY");
    EXPECT_TRUE(app->mdi->PicKdxPower()->lit());
    EXPECT_FALSE(app->mdi->PicKdxOnline()->lit());
    EXPECT_EQ(report.text(), "") << "the box is emptied after each report";

    app->splash->show(); // start-up's own queries do not move the panel
    app->kdx.KdxChanged.raise("BUSY");
    EXPECT_EQ(app->mdi->LblStatusKdx()->text(), "OFFLINEREADY");
    app->splash->hide();
    app->kdx.KdxChanged.raise("BUSY");
    EXPECT_EQ(app->mdi->LblStatusKdx()->text(), "BUSY");
}
