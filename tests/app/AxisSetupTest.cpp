// The axis set-up windows and the wizard, driven as a user drives them, against the virtual
// controller on Com1.
#include "AppFixture.h"

#include "axis/ui/FrmKdxToolSetAxis.h"
#include "axis/ui/FrmKdxToolWizardSetup.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"
#include "link/ui/FrmKdxDriverCallback.h"
#include "link/ui/FrmKdxToolDetect.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QTimer>

using namespace korval;
using namespace korval::test;
using Answer = Prompts::Answer;

namespace {

const char* const AxisOnePages[] = {
    "Select your motor manufacturer (or set by 'Motor Setting') for axis 1",
    "Select your motor model (or Motor Setting) for axis 1",
    "Select your limits type for axis 1",
    "Test your motor for axis 1",
};

// Acts on each wizard page once it is up, as a user at the window would.
class PageDriver {
public:
    using Act = std::function<void(FrmKdxToolWizardSetup&, const std::string& instruction)>;
    explicit PageDriver(Act act) : act_(std::move(act)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { poll(); });
        timer_.start(20);
    }
    std::function<void()> whileNoPage; // runs on each round no page is up

private:
    void poll() {
        if (!AppRunning()) {
            return; // the program of this round has gone; the next one starts later
        }
        auto* wizard = App().Form<FrmKdxToolWizardSetup>("FrmKdxToolWizardSetup");
        if (busy_ || wizard == nullptr) {
            return;
        }
        busy_ = true;
        if (wizard->isVisible()) {
            act_(*wizard, wizard->findChild<QLabel*>("LblInstructions")->text().toStdString());
        } else if (whileNoPage) {
            whileNoPage();
        }
        busy_ = false;
    }
    Act act_;
    QTimer timer_;
    bool busy_ = false;
};

bool startsWith(const std::string& text, const char* start) {
    return text.rfind(start, 0) == 0;
}

struct AxisSetup : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        withDriverFolder();
        withConfig();
    }
    // Between the cases of a table: the program and the controller go, and the settings too.
    void afresh() {
        TearDown();
        std::filesystem::remove(settingsFile());
    }
    FrmKdxToolSetAxis* tool(int axis) const {
        return app->Form<FrmKdxToolSetAxis>("FrmKdxToolSetAxis" + std::to_string(axis));
    }
    FrmKdxToolWizardSetup* wizard() const {
        return app->Form<FrmKdxToolWizardSetup>("FrmKdxToolWizardSetup");
    }
    bool menuOn(int axis) const {
        return app->mdi->Menu(QString("MnuToolsSetUpAxis%1").arg(axis))->isEnabled();
    }
    std::string settings(int axis) const {
        return std::to_string(app->kdx.GetMotorSetting(axis)) + "," +
               std::to_string(app->kdx.GetLimitSetting(axis));
    }
    bool asked(const std::string& box) const {
        return std::find(prompts.asked.begin(), prompts.asked.end(), box) != prompts.asked.end();
    }
};

QColor listShade(FrmKdxToolSetAxis& tool) {
    return tool.CmbSetBy()->palette().color(QPalette::Base);
}

} // namespace

TEST_F(AxisSetup, AFirstRunFindsTheControllerAndTakesTheUserThroughItsOneAxis) {
    firstRun = true;
    startController("arrangement=1");
    std::vector<std::string> pages;
    bool mainDisabledOnEveryPage = true;
    std::string reportDuringPage;
    prompts.answers = {Answer::Yes, Answer::Yes}; // the motor moved; keep the settings
    PageDriver user([&](FrmKdxToolWizardSetup& w, const std::string& instruction) {
        pages.push_back(instruction);
        mainDisabledOnEveryPage = mainDisabledOnEveryPage && !app->mdi->isEnabled();
        if (startsWith(instruction, "Select your motor manufacturer")) {
            // The wizard owns the controller: a report leaves the panel alone, and stays.
            auto& report = app->Form<FrmKdxDriverCallback>("FrmKdxDriverCallback")->StatusReport();
            report.sink()->write(report.sink()->context, "J", 1);
            QCoreApplication::processEvents();
            reportDuringPage = app->mdi->LblStatusKdx()->text().toStdString() + "|" + report.text();
            w.CmbSetBy()->setCurrentIndex(1); // Superior
        } else if (startsWith(instruction, "Select your motor model")) {
            w.CmbMotorSetting()->setCurrentIndex(4); // M063: motor setting 4
        } else if (startsWith(instruction, "Select your limits")) {
            w.CmbLimits()->setCurrentIndex(2); // Auto-Detect: limit setting 0
        }
        if (startsWith(instruction, "Test")) {
            w.PicTestMotor_MouseDown();
        } else {
            w.PicNext_MouseDown();
        }
    });
    ASSERT_TRUE(start());
    EXPECT_EQ(pages, std::vector<std::string>(std::begin(AxisOnePages), std::end(AxisOnePages)));
    EXPECT_TRUE(mainDisabledOnEveryPage);
    EXPECT_EQ(reportDuringPage.substr(reportDuringPage.find('|')), "|J");
    EXPECT_NE(reportDuringPage, "OFFLINEREADY|J");
    EXPECT_TRUE(app->mdi->isEnabled());
    EXPECT_TRUE(asked("Axis Settings Test: Did the motor appear to move properly?"));
    EXPECT_EQ(prompts.asked.back(), "Set-Up Wizard: KDX is now configured");
    EXPECT_EQ(settings(1), "4,0") << "the tested settings were kept in the controller";
    EXPECT_EQ(tool(1)->CmbMotorSetting()->currentText(), "M063");
    EXPECT_EQ(std::vector<bool>({menuOn(1), menuOn(2), menuOn(3), menuOn(4)}),
              std::vector<bool>({true, false, false, false}));
    for (int axis = 1; axis <= 4; ++axis) {
        EXPECT_FALSE(tool(axis)->findChild<QRadioButton*>("OptMotor3")->isEnabled()) << axis;
        EXPECT_FALSE(tool(axis)->findChild<QRadioButton*>("OptMotor4")->isEnabled()) << axis;
        EXPECT_FALSE(tool(axis)->IsShown()) << axis;
    }
    // The tested axis's lists got their colour back; the others keep the wizard's grey.
    const auto palette = QApplication::palette();
    EXPECT_EQ(listShade(*tool(1)), palette.color(QPalette::Active, QPalette::Base));
    EXPECT_EQ(listShade(*tool(2)), palette.color(QPalette::Disabled, QPalette::Text));
    EXPECT_FALSE(app->Form<FrmKdxToolDetect>("FrmKdxToolDetect")->CommunicationsLost);
}

TEST_F(AxisSetup, TheAxisToolShowsTheControllerFollowsTheTestAndStopRestores) {
    startController("arrangement=2");
    ASSERT_TRUE(start());
    app->mdi->Menu("MnuToolsSetUpAxis2")->trigger();
    auto* t = tool(2);
    ASSERT_TRUE(t->IsShown());
    EXPECT_EQ(t->windowTitle(), "Axis 2");
    const auto tip = [t] { return t->CmbMotorSetting()->toolTip().toStdString(); };
    // The controller holds motor setting 0 and limit setting 1. With nothing saved the stored
    // make reads as Vexta and the stored motor as 0, which matches: Vexta stays, and as it has
    // no motor 0 its first model stands.
    EXPECT_EQ(t->CmbSetBy()->currentText(), "Vexta");
    EXPECT_EQ(t->CmbMotorSetting()->currentText(), "PK245-01");
    EXPECT_EQ(t->CmbLimits()->currentText(), "Tavrin Slide");
    t->CmbSetBy()->setCurrentIndex(2); // a make chosen by the user reads the controller again
    EXPECT_EQ(t->CmbMotorSetting()->currentText(), "0");
    EXPECT_EQ(tip(), "Pick the motor setting that most closely matches your motor");
    t->CmbSetBy()->setCurrentIndex(0);
    EXPECT_EQ(t->CmbMotorSetting()->currentText(), "PK245-01");
    EXPECT_EQ(tip(), "Pick the Vexta motor that most closely matches your motor");
    t->CmbMotorSetting()->setCurrentIndex(6); // blank under Vexta
    EXPECT_EQ(t->MotorSettingValue, 1);
    t->CmbMotorSetting()->setCurrentIndex(5);
    t->CmbLimits()->setCurrentIndex(2);
    EXPECT_EQ(t->MotorSettingValue, 5);
    EXPECT_EQ(t->LimitSettingValue, 0);

    // Stop on the main window as soon as the position box shows the axis on its way.
    bool stopped = false;
    PageDriver user([](FrmKdxToolWizardSetup&, const std::string&) {});
    user.whileNoPage = [&] {
        const auto shown = t->findChild<QLineEdit*>("TxtPosition")->text();
        if (!stopped && !shown.isEmpty() && shown != "0" && shown != "400") {
            stopped = true;
            app->mdi->PicStopButton_MouseDown();
        }
    };
    EXPECT_EQ(t->PicTestMotor_MouseDown(), MotorTestOutcome::Restored);
    ASSERT_TRUE(stopped) << "the position box never showed the axis between its ends";
    EXPECT_FALSE(asked("Axis Settings Test: Did the motor appear to move properly?"));
    EXPECT_TRUE(asked("Axis Settings Test: Original settings restored.\r\n\r\nTry again with "
                      "the correct settings"));
    EXPECT_EQ(settings(2), "0,1");
    auto where = app->kdx.GetCurrentMotorPosition(2);
    EXPECT_EQ(t->findChild<QLineEdit*>("TxtPosition")->text().toStdString(),
              ClsKdxAxis::FormatPosition(where))
        << "the box ends on where the axis stopped";
    EXPECT_TRUE(t->findChild<PictureButton*>("PicTestMotor")->isEnabled());

    // Closed by the user: hidden, and its rows are kept at once for the next match.
    t->SubWindow()->close();
    EXPECT_FALSE(t->IsShown());
    EXPECT_EQ(app->iniFile.ProfileGetItem("FrmKdxToolSetAxis2", "CmbMotorSetting.ListIndex", "",
                                          settingsFile()),
              std::to_string(t->CmbMotorSetting()->currentIndex()));
}

TEST_F(AxisSetup, LaterStartsSetTheThirdAndFourthAxisByThePossibleMotorCount) {
    for (const auto& [arrangement, four] : {std::pair{"2", false}, std::pair{"2+2", true}}) {
        startController(std::string("arrangement=") + arrangement);
        ASSERT_TRUE(start());
        EXPECT_TRUE(prompts.asked.empty()) << "no wizard";
        for (int axis = 1; axis <= 4; ++axis) {
            for (const char* name : {"OptMotor3", "OptMotor4"}) {
                EXPECT_EQ(tool(axis)->findChild<QRadioButton*>(name)->isEnabled(), four)
                    << arrangement << " " << axis << " " << name;
            }
        }
        EXPECT_EQ(menuOn(3), four) << arrangement;
        afresh();
    }
}

TEST_F(AxisSetup, AWizardEndedEarlyLeavesTheAxesAsTheyWere) {
    const struct {
        const char* how;
        std::function<void(FrmKdxToolWizardSetup&)> onModelPage;
        bool abortTheSearch;
        const char* axis1Make; // what the axis tool shows after
    } cases[] = {
        {"close box on page 2", [](FrmKdxToolWizardSetup& w) { w.close(); }, false, "Superior"},
        {"Cancel on page 2", [](FrmKdxToolWizardSetup& w) { w.PicCancel_MouseDown(); }, false,
         "Superior"},
        {"the main window closed on page 2", [this](FrmKdxToolWizardSetup&) { app->mdi->close(); },
         false, "Superior"},
        {"abort during the search", {}, true, "Vexta"},
    };
    for (const auto& c : cases) {
        startController("arrangement=2");
        ASSERT_TRUE(start());
        std::vector<std::string> pages;
        PageDriver user([&](FrmKdxToolWizardSetup& w, const std::string& instruction) {
            pages.push_back(instruction);
            if (startsWith(instruction, "Select your motor manufacturer")) {
                w.CmbSetBy()->setCurrentIndex(1);
                w.PicNext_MouseDown();
            } else {
                c.onModelPage(w);
            }
        });
        user.whileNoPage = [&] {
            auto* abort = app->FindForm("FrmKdxToolDetect")->findChild<PictureButton*>("PicAbort");
            if (c.abortTheSearch && abort->isVisible()) {
                emit abort->pressed();
            }
        };
        app->mdi->Menu("MnuWizard")->trigger();
        EXPECT_EQ(pages.size(), c.abortTheSearch ? 0u : 2u) << c.how;
        EXPECT_FALSE(asked("Set-Up Wizard: KDX is now configured")) << c.how;
        EXPECT_TRUE(app->mdi->isEnabled()) << c.how;
        EXPECT_TRUE(app->mdi->isVisible()) << c.how << ": the program goes on";
        EXPECT_EQ(settings(1) + " " + settings(2), "0,1 0,1") << c.how;
        EXPECT_EQ(tool(1)->CmbSetBy()->currentText().toStdString(), c.axis1Make) << c.how;
        for (int axis = 1; axis <= 4; ++axis) {
            EXPECT_FALSE(tool(axis)->IsShown()) << c.how;
            EXPECT_EQ(listShade(*tool(axis)),
                      QApplication::palette().color(QPalette::Active, QPalette::Base))
                << c.how;
        }
        afresh();
    }
}
