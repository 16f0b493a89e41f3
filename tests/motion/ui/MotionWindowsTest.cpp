// The motion windows in the running program, with the virtual controller on Com1.
#include "app/AppFixture.h"

#include "core/ClsReadWriteFile.h"
#include "core/ui/LineHold.h"
#include "core/ui/MdiKorval.h"
#include "motion/ui/AdvStepFrame.h"
#include "motion/ui/FrmKdxToolAxisPositions.h"
#include "motion/ui/FrmKdxToolQuickMoveMulti.h"
#include "motion/ui/FrmKdxToolQuickMoveSingle.h"
#include "motion/ui/FrmKdxToolVirtualJog.h"
#include "motion/ui/JogArrow.h"
#include "scripts/ui/FrmKdxToolTerminal.h"

#include <QAction>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QRadioButton>

using namespace korval;
using namespace korval::test;

namespace {

void mouse(QWidget* widget, QEvent::Type type, QPointF at = {5, 5}) {
    const bool down = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                      down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// Keys as the user types them, each through the box's own key handling.
void type(QLineEdit* box, const QString& keys) {
    box->setFocus();
    box->selectAll();
    for (const auto key : keys) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(key));
        QCoreApplication::sendEvent(box, &press);
    }
    box->clearFocus();
}

// A whole value put in at once (pasted, or typed elsewhere), then the box is left.
void enter(AdvStepFrame* frame, const QString& advance) {
    frame->TxtAdvStep()->setText(advance);
    frame->TxtAdvStep_Change();
}

struct MotionWindows : AppFixture {
    FrmKdxToolVirtualJog* jog = nullptr;
    FrmKdxToolQuickMoveSingle* single = nullptr;
    FrmKdxToolQuickMoveMulti* multi = nullptr;

    void SetUp() override {
        AppFixture::SetUp();
        installWithController("arrangement=2+1");
        launch();
    }
    void launch() {
        ASSERT_TRUE(start());
        jog = app->Form<FrmKdxToolVirtualJog>("FrmKdxToolVirtualJog");
        single = app->Form<FrmKdxToolQuickMoveSingle>("FrmKdxToolQuickMoveSingle");
        multi = app->Form<FrmKdxToolQuickMoveMulti>("FrmKdxToolQuickMoveMulti");
        offerAxes(3); // as the set-up of axes does for a chain of three
    }
    void offerAxes(int count) {
        for (int n = 1; n <= 4; ++n) {
            app->mdi->Menu(QString("MnuToolsSetUpAxis%1").arg(n))->setEnabled(n <= count);
        }
    }
    void open(const char* menu) { app->mdi->Menu(menu)->trigger(); }
    long at(int axis) {
        long p = 0;
        controller->withChain([&](sim::KdxChain& chain) { p = chain.position(axis); });
        return p;
    }
    // Waits until the controller is neither busy nor jogging, at most three seconds.
    std::string settle() {
        for (int i = 0; i < 30; ++i) {
            const auto word = app->kdx.VerifyStatus();
            if (word != "BUSY" && word != "JOGGING") {
                return word;
            }
            app->delay.TimeDelay(0.1);
        }
        return app->kdx.LastStatus;
    }
    template <typename Window> QRadioButton* option(Window* w, const char* name) {
        return w->template findChild<QRadioButton*>(name);
    }
};

} // namespace

TEST_F(MotionWindows, AJogRunsWhileTheArrowIsHeldAndShowsWhereItGoes) {
    open("MnuToolsVirtualJog");
    ASSERT_TRUE(jog->IsShown());
    option(jog, "OptMotor2")->setChecked(true);
    EXPECT_EQ(jog->TxtPosition()->text(), "0") << "read when chosen";
    jog->TxtVelocity()->setText("1500.5"); // halves to even: 1500
    mouse(jog->PicMovePositive(), QEvent::MouseButtonPress);
    EXPECT_TRUE(app->kdx.Verifying);
    app->delay.TimeDelay(0.5);
    const long shown = jog->TxtPosition()->text().toLong();
    EXPECT_GT(shown, 100) << "the position shows while the arrow is held";
    EXPECT_EQ(app->kdx.VerifyStatus(), "JOGGING");
    mouse(jog->PicMovePositive(), QEvent::MouseButtonRelease);
    EXPECT_FALSE(app->kdx.Verifying);
    EXPECT_EQ(settle(), "ONLINEREADY");
    app->delay.TimeDelay(0.3);
    EXPECT_EQ(jog->TxtPosition()->text().toLong(), at(2)) << "and where it stopped";
    EXPECT_EQ(at(1), 0);
    EXPECT_GT(at(2), shown);
    EXPECT_LT(at(2), 1500) << "about half a second at 1500 steps a second";
}

TEST_F(MotionWindows, EveryWayAHoldEndsStopsTheJog) {
    auto* terminal = app->Form<FrmKdxToolTerminal>("FrmKdxToolTerminal");
    const struct {
        const char* how;
        std::function<void(JogArrow*)> end;
    } cases[] = {
        {"release", [](JogArrow* a) { mouse(a, QEvent::MouseButtonRelease); }},
        {"the pointer leaves the arrow",
         [](JogArrow* a) {
             mouse(a, QEvent::MouseMove, {-20, 5});
         }},
        {"a leave without a move",
         [](JogArrow* a) {
             QEvent leave(QEvent::Leave);
             QCoreApplication::sendEvent(a, &leave);
         }},
        {"the window is closed while held", [this](JogArrow*) { jog->SubWindow()->close(); }},
        {"another window takes the focus",
         [&](JogArrow*) {
             terminal->ShowWindow();
             app->mdi->Area()->setActiveSubWindow(terminal->SubWindow());
         }},
        {"the Stop button", [this](JogArrow*) { app->mdi->PicStopButton_MouseDown(); }},
    };
    for (const auto& c : cases) {
        open("MnuToolsVirtualJog");
        app->mdi->Area()->setActiveSubWindow(jog->SubWindow());
        auto* arrow = jog->PicMoveNegative();
        mouse(arrow, QEvent::MouseButtonPress);
        ASSERT_TRUE(arrow->IsHeld()) << c.how;
        app->delay.TimeDelay(0.4);
        ASSERT_EQ(app->kdx.VerifyStatus(), "JOGGING") << c.how;
        c.end(arrow); // the release itself never comes
        EXPECT_FALSE(arrow->IsHeld()) << c.how;
        EXPECT_EQ(settle(), "ONLINEREADY") << c.how;
        const long stopped = at(1);
        EXPECT_LT(stopped, 0) << c.how;
        app->delay.TimeDelay(0.3);
        EXPECT_EQ(at(1), stopped) << c.how << ": the motor stays stopped";
        if (jog->IsShown()) {
            app->delay.TimeDelay(0.2);
            EXPECT_EQ(jog->TxtPosition()->text().toLong(), stopped) << c.how;
        }
    }
}

TEST_F(MotionWindows, TheStopButtonAndAHiddenWindowReadPositionsOnlyWhenShown) {
    jog->TxtPosition()->setText("+0012");
    option(jog, "OptMotor3")->setChecked(true); // hidden: only cleaned
    EXPECT_EQ(jog->TxtPosition()->text(), "12");
    app->kdx.SendCommandsToPort("C,S3M2000,I3M300,R");
    EXPECT_EQ(settle(), "ONLINEREADY");
    app->mdi->PicStopButton_MouseDown();
    EXPECT_EQ(jog->TxtPosition()->text(), "12") << "the Stop button reads no hidden window's motor";
    open("MnuToolsVirtualJog");
    app->mdi->PicStopButton_MouseDown();
    EXPECT_EQ(jog->TxtPosition()->text(), "300");
}

TEST_F(MotionWindows, SingleAxisMovesInTheUsersUnitsAndBothWindowsShareTheAdvance) {
    open("MnuToolsQuickMoveSingle");
    auto* frame = single->FrameAdvStep(2);
    type(frame->TxtAdvStep(), "0.5");
    type(frame->TxtAdvStepUnits(), "mm");
    EXPECT_EQ(app->axes.Axis2.GetAdvStep(), "0.5");
    EXPECT_EQ(app->axes.Axis2.GetAdvStepUnits(), "mm");
    EXPECT_EQ(multi->FrameAdvStep(2)->TxtAdvStep()->text(), "0.5") << "the other window follows";
    EXPECT_EQ(multi->FrameAdvStep(2)->TxtAdvStepUnits()->text(), "mm");

    option(single, "OptMotor2")->setChecked(true); // 2000 and 400 steps, now in millimetres
    EXPECT_EQ(single->TxtVelocity()->text(), "1,000.0000000");
    EXPECT_EQ(single->TxtDistance()->text(), "200.0000000");
    EXPECT_EQ(single->findChild<QLabel*>("LblVelocity2")->text(), "mm per Second");
    EXPECT_EQ(single->findChild<QLabel*>("LblDistance2")->text(), "mm");

    single->PicMove_MouseDown(QuickMoveDirection::Positive);
    EXPECT_EQ(settle(), "ONLINEREADY");
    EXPECT_EQ(at(2), 400);
    single->TxtDistance()->setText("50");
    single->PicMove_MouseDown(QuickMoveDirection::Negative); // waits for the end itself
    EXPECT_EQ(at(2), 300);
    EXPECT_TRUE(single->findChild<QWidget*>("PicMovePositive")->isVisible());

    type(frame->TxtAdvStep(), "4"); // the boxes keep the steps they stand for
    EXPECT_EQ(single->TxtDistance()->text(), "400.0000000");
    type(frame->TxtAdvStep(), "0");
    single->PicMove_MouseDown(QuickMoveDirection::Positive);
    app->delay.TimeDelay(0.3);
    EXPECT_EQ(at(2), 300) << "an advance of 0 sends nothing";
    EXPECT_TRUE(prompts.asked.empty()) << prompts.asked.front();

    auto* help = single->findChild<QWidget*>("PicHelp3");
    mouse(help, QEvent::MouseButtonPress);
    EXPECT_EQ(prompts.asked,
              std::vector<std::string>{"Advance Per Step: Enter the advance per step of the motor "
                                       "and the units used\r\nCommon values can be found on P.11 "
                                       "of the KDX Users Manual"});
}

TEST_F(MotionWindows, TwoAxesMoveInOneCommandGroupTwoFirst) {
    open("MnuToolsQuickMoveSimultaneous");
    option(multi, "OptMotor2")->setChecked(true);
    option(multi, "OptMtrNeg2")->setChecked(true);
    enter(multi->FrameAdvStep(3), "0.01");
    multi->TxtVelocity(1)->setText("1500");
    multi->TxtDistance(1)->setText("350");
    multi->TxtVelocity(2)->setText("20");
    multi->TxtDistance(2)->setText("-2.5"); // the sign comes from the direction alone
    multi->PicMoveMtrs_MouseDown();         // returns once the controller is ready again
    EXPECT_EQ(app->kdx.LastStatus, "ONLINEREADY");
    EXPECT_EQ(at(2), 350);
    EXPECT_EQ(at(3), -250);
    EXPECT_EQ(at(1), 0);
    EXPECT_TRUE(multi->findChild<QWidget*>("PicMoveMtrs")->isVisible());
}

TEST_F(MotionWindows, AxesTheMainWindowDoesNotOfferCannotBeChosenOrMoved) {
    option(single, "OptMotor4")->setChecked(true); // as settings of a larger chain would leave it
    open("MnuToolsQuickMoveSingle");
    open("MnuToolsQuickMoveSimultaneous");
    open("MnuToolsVirtualJog");
    for (const auto* window : std::initializer_list<QWidget*>{single, multi, jog}) {
        for (int n = 1; n <= 4; ++n) {
            const auto* o = window->findChild<QRadioButton*>(QString("OptMotor%1").arg(n));
            EXPECT_EQ(o->isEnabled(), n <= 3) << window->objectName().toStdString() << " " << n;
        }
    }
    EXPECT_FALSE(single->FrameAdvStep(4)->isEnabled());
    EXPECT_TRUE(multi->findChild<QGroupBox*>("FrameMotor2")->isEnabled());
    single->PicMove_MouseDown(QuickMoveDirection::Positive);
    EXPECT_EQ(prompts.asked, std::vector<std::string>{"KDX QuickMove - Single Axis: The KDX does "
                                                      "not drive that axis: nothing was sent."});
    EXPECT_EQ(app->kdx.VerifyStatus(), "ONLINEREADY") << "no refusal from the controller";

    offerAxes(2); // a single controller: the second group cannot take part
    open("MnuToolsQuickMoveSimultaneous");
    EXPECT_FALSE(multi->findChild<QGroupBox*>("FrameMotor2")->isEnabled());
    EXPECT_FALSE(multi->findChild<QGroupBox*>("FrameDirGrp2")->isEnabled());
    multi->PicMoveMtrs_MouseDown();
    EXPECT_EQ(at(1), 400);
    EXPECT_EQ(at(3), 0);
}

TEST_F(MotionWindows, QuickMoveBoxesAreSavedInStepsAndComeBackInTheUsersUnits) {
    enter(single->FrameAdvStep(1), "0.0254");
    type(single->FrameAdvStep(1)->TxtAdvStepUnits(), "in");
    EXPECT_EQ(single->TxtDistance()->text(), "10.1600000");
    EXPECT_EQ(multi->TxtDistance(1)->text(), "10.16");
    stop();
    const auto saved = readWholeFile(settingsFile()).value_or("");
    for (const auto* line : {"\tTxtDistance.Text=400.0000000\r\n", "\tTxtDistance1.Text=400\r\n",
                             "\tTxtAdvStep1.Text=0.0254\r\n", "\tTxtAdvStepUnits1.Text=in\r\n"}) {
        EXPECT_NE(saved.find(line), std::string::npos) << line << saved;
    }
    launch();
    EXPECT_EQ(app->axes.Axis1.GetAdvStep(), "0.0254");
    EXPECT_EQ(app->axes.Axis1.GetAdvStepUnits(), "in");
    EXPECT_EQ(single->TxtDistance()->text(), "10.1600000");
    EXPECT_EQ(single->TxtVelocity()->text(), "50.8000000");
    EXPECT_EQ(single->findChild<QLabel*>("LblVelocity2")->text(), "in per Second");
    EXPECT_EQ(multi->TxtDistance(1)->text(), "10.16");
    EXPECT_EQ(multi->FrameAdvStep(1)->TxtAdvStep()->text(), "0.0254");
    single->PicMove_MouseDown(QuickMoveDirection::Positive);
    EXPECT_EQ(settle(), "ONLINEREADY");
    EXPECT_EQ(at(1), 400);
}

TEST_F(MotionWindows, AxisPositionsFollowMovesAndKeepOffAHeldLine) {
    auto* view = app->Form<FrmKdxToolAxisPositions>("FrmKdxToolAxisPositions");
    enter(single->FrameAdvStep(1), "0.5");
    type(single->FrameAdvStep(1)->TxtAdvStepUnits(), "mm");
    open("MnuToolsAxisPositions");
    app->delay.TimeDelay(0.6);
    EXPECT_EQ(view->LblSteps(1)->text(), "0");
    EXPECT_EQ(view->LblUnits(1)->text(), "0 mm");
    EXPECT_EQ(view->LblSteps(3)->text(), "0");
    EXPECT_EQ(view->LblSteps(4)->text(), "none") << "the chain has no axis 4";

    app->kdx.SendCommandsToPort("C,S1M2000,I1M400,R");
    EXPECT_EQ(settle(), "ONLINEREADY");
    app->delay.TimeDelay(0.8);
    EXPECT_EQ(view->LblSteps(1)->text(), "400");
    EXPECT_EQ(view->LblUnits(1)->text(), "200 mm");
    {
        LineHold hold; // a troubleshooter polls: the view leaves the line alone
        app->kdx.SendCommandsToPort("C,S1M2000,I1M-400,R");
        app->delay.TimeDelay(1.2);
        EXPECT_EQ(view->LblSteps(1)->text(), "400");
    }
    app->delay.TimeDelay(0.8);
    EXPECT_EQ(view->LblSteps(1)->text(), "0") << "read again once the line is free";
    type(single->FrameAdvStep(2)->TxtAdvStepUnits(), "deg");
    EXPECT_EQ(view->LblUnits(2)->text(), "0 deg");
}
