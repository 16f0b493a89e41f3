// The AutoReverse window as a user drives it, with the virtual controller on Com1.
#include "AppFixture.h"

#include "core/ClsReadWriteFile.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"
#include "core/ui/PreviewPanel.h"
#include "motion/ui/FrmKdxToolAutoReverse.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

using namespace korval;
using namespace korval::test;

namespace {

struct AutoReverseWindow : AppFixture {
    FrmKdxToolAutoReverse* tool = nullptr;

    void SetUp() override {
        AppFixture::SetUp();
        installWithController();
        ASSERT_TRUE(start());
        tool = app->Form<FrmKdxToolAutoReverse>("FrmKdxToolAutoReverse");
        ASSERT_NE(tool, nullptr);
        app->mdi->Menu("MnuToolsAutoReverse")->trigger();
        prompts.asked.clear();
    }
    QComboBox* combo(const char* name) const { return tool->findChild<QComboBox*>(name); }
    QLineEdit* box(const char* name) const { return tool->findChild<QLineEdit*>(name); }
    QString section(const char* name) const {
        return tool->findChild<QPlainTextEdit*>(name)->toPlainText();
    }
    bool shown(const char* name) const { return !tool->findChild<QWidget*>(name)->isHidden(); }
    void enter(const char* name, const QString& text) {
        box(name)->setText(text);
        QTest::keyClick(box(name), Qt::Key_Return);
    }
    // The program stored in the controller, command by command.
    std::string stored(int number) {
        std::string listing;
        controller->withChain([&](sim::KdxChain& chain) {
            for (const auto& c : chain.code(number)) {
                listing += c.text + ",";
            }
        });
        return listing;
    }
};

} // namespace

TEST_F(AutoReverseWindow, TheMenuEntryAndTheToolBarButtonShowIt) {
    EXPECT_TRUE(tool->IsShown());
    EXPECT_EQ(tool->windowTitle(), "KDX AutoReverse");
    tool->HideWindow();
    emit app->mdi->Button("PicAutoReverse")->pressed();
    EXPECT_TRUE(tool->IsShown());
}

TEST_F(AutoReverseWindow, FieldsFollowTheChoices) {
    EXPECT_FALSE(box("TxtHomePosition")->isEnabled());
    EXPECT_TRUE(shown("CmdJogHomePositive"));
    EXPECT_FALSE(shown("CmbHomeInstance"));
    EXPECT_TRUE(shown("TxtMovePosition"));
    EXPECT_FALSE(box("TxtMovePosition")->isEnabled()) << "taught, not typed";
    EXPECT_TRUE(shown("CmdJogMovePositive"));
    EXPECT_EQ(section("TxtMoveType").toStdString(),
              "S1M2000,\t\t;Motor 1 speed 2000 steps/sec\nI1M400,\t\t;Motor 1 index +400 steps\n");

    combo("CmbHomeStyle")->setCurrentIndex(1);
    EXPECT_TRUE(box("TxtHomePosition")->isEnabled());
    EXPECT_EQ(box("TxtHomePosition")->text(), "400");
    EXPECT_FALSE(shown("CmdJogHomePositive"));
    EXPECT_TRUE(shown("CmbHomeInstance"));
    EXPECT_EQ(combo("CmbMovePosition")->currentIndex(), 1);
    EXPECT_FALSE(shown("CmdJogMovePositive"));
    combo("CmbMovePosition")->setCurrentIndex(0);
    EXPECT_EQ(combo("CmbMovePosition")->currentIndex(), 1) << "teaching only from here";
    EXPECT_TRUE(box("TxtMovePosition")->isEnabled());
    combo("CmbMovePosition")->setCurrentIndex(3);
    EXPECT_FALSE(shown("TxtMovePosition"));
    EXPECT_TRUE(section("TxtMoveType").contains("I1M-0,"));

    combo("CmbReturnPosition")->setCurrentIndex(1);
    EXPECT_TRUE(shown("TxtReturnPause"));
    EXPECT_TRUE(shown("LblMoveToStart"));
    combo("CmbReturnPosition")->setCurrentIndex(3);
    EXPECT_FALSE(shown("TxtReturnPause"));
    EXPECT_TRUE(section("TxtReturnType").startsWith("U0,"));
    combo("CmbRepeat")->setCurrentIndex(1);
    EXPECT_FALSE(shown("TxtRepeat"));
    EXPECT_EQ(section("TxtRepeatType"), "L0,\n");

    // The combos take the arrows only.
    QTest::keyClick(combo("CmbHomeIO"), Qt::Key_O);
    EXPECT_EQ(combo("CmbHomeIO")->currentIndex(), 0);
    QTest::keyClick(combo("CmbHomeIO"), Qt::Key_Down);
    EXPECT_EQ(combo("CmbHomeIO")->currentIndex(), 1);
    EXPECT_TRUE(shown("TxtHomePause"));
    EXPECT_TRUE(prompts.asked.empty());
}

TEST_F(AutoReverseWindow, BoxesAreCheckedAsTheUserLeavesThem) {
    combo("CmbHomeStyle")->setCurrentIndex(1);
    enter("TxtHomeSpeed", "2500");
    EXPECT_EQ(box("TxtHomeSpeed")->text(), "2000");
    enter("TxtMovePosition", "-401");
    EXPECT_EQ(box("TxtMovePosition")->text(), "-400");
    EXPECT_EQ(prompts.asked,
              (std::vector<std::string>{"Error: Homing Speed: Speed Too High",
                                        "Error: Moving Direction: Invalid Distance\r\n\r\n"
                                        "Maximum Travel is -400 Steps"}));
    combo("CmbHomeIO")->setCurrentIndex(1);
    enter("TxtHomePause", "7000");
    EXPECT_EQ(box("TxtHomePause")->text(), "7000") << "Enter does not take the pause";
    QFocusEvent leaving(QEvent::FocusOut);
    QApplication::sendEvent(box("TxtHomePause"), &leaving);
    EXPECT_EQ(box("TxtHomePause")->text(), "6,553.5");
    EXPECT_EQ(section("TxtHomeUserIO").toStdString(), "P60,\t\t;Pause 6 seconds\n");
}

TEST_F(AutoReverseWindow, TestStoreAndSaveUseTheMotorChosenLast) {
    app->mdi->Menu("MnuToolsSetUpAxis2")->setEnabled(true);
    tool->HideWindow();
    tool->ShowWindow();
    EXPECT_TRUE(tool->findChild<QRadioButton*>("OptMotor2")->isEnabled());
    EXPECT_FALSE(tool->findChild<QRadioButton*>("OptMotor3")->isEnabled());
    tool->findChild<QRadioButton*>("OptMotor2")->click();
    EXPECT_TRUE(section("TxtMoveType").contains("S1M2000")) << "kept until the next rebuild";

    tool->PicTestScript_MouseDown();
    EXPECT_EQ(stored(0), "LM0,S2M2000,I2M400,S2M2000,IA2M0,");
    EXPECT_TRUE(section("TxtMoveType").contains("I2M400,"));
    EXPECT_TRUE(section("TxtRunSaveType").contains("R\t\t;"));

    combo("CmbHomeStyle")->setCurrentIndex(2);
    combo("CmbHomeInstance")->setCurrentIndex(2);
    enter("TxtMovePosition", "-700");
    tool->PicSaveToKdx_MouseDown();
    EXPECT_EQ(stored(4), "S2M500,I2M0,IA2M-0,IA2M-400,");
    EXPECT_EQ(stored(0), "S2M2000,I2M-700,S2M2000,IA2M400,");
    EXPECT_TRUE(section("TxtRunSaveType").contains("rsm"));

    prompts.saves.push_back(folder.file("back and forth.txt.txt"));
    tool->PicSaveToFileButton_MouseDown();
    const auto saved = readWholeFile(folder.file("back and forth.txt")).value_or("");
    EXPECT_TRUE(saved.starts_with("F,\t\t;KDX Online with Echo Off\r\nPM-4,")) << saved;
    EXPECT_TRUE(saved.ends_with("setDM129,\t\t;Set the operating mode word to 129\r\n"
                                "R\t\t;Run the current program\r\n"))
        << saved;
    EXPECT_EQ(prompts.asked, std::vector<std::string>{"save Save KDX Script to File"});
}

TEST_F(AutoReverseWindow, TeachByJoggingThenStop) {
    auto* jog = tool->findChild<QPushButton*>("CmdJogMovePositive");
    QTest::mousePress(jog, Qt::LeftButton);
    app->delay.TimeDelay(0.5);
    QTest::mouseRelease(jog, Qt::LeftButton);
    const auto taught = box("TxtMovePosition")->text();
    EXPECT_GT(taught.toLong(), 400) << taught.toStdString();
    EXPECT_TRUE(section("TxtMoveType").contains("I1M" + taught + ","));

    // The Stop button tidies both position boxes as positions.
    box("TxtHomePosition")->setText(" +12,5");
    box("TxtMovePosition")->setText("99999999");
    app->mdi->PicStopButton_MouseDown();
    EXPECT_EQ(box("TxtHomePosition")->text(), "12");
    EXPECT_EQ(box("TxtMovePosition")->text(), "16777215");
}

TEST_F(AutoReverseWindow, ThePreviewNeverTouchesTheController) {
    combo("CmbHomeIO")->setCurrentIndex(2); // wait for the Run button
    enter("TxtRepeat", "3");
    tool->ShowPreview();
    EXPECT_EQ(tool->Views()->currentWidget(), tool->Preview());
    const auto words = tool->Preview()->Summary()->text().toStdString();
    EXPECT_TRUE(words.starts_with("Cycle time: ")) << words;
    EXPECT_NE(words.find("Total time of 3 cycles: "), std::string::npos) << words;
    EXPECT_NE(words.find("answered after 1.00 s"), std::string::npos) << words;
    EXPECT_EQ(stored(0), "") << "nothing was sent to the controller";
}

TEST_F(AutoReverseWindow, TheScriptEditorPreviewsItsScript) {
    auto* editor = app->Form<FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
    editor->SetText("C,\r\nS1M1000,\r\nP5,\r\n");
    std::string words;
    QTimer look; // the preview opens over the editor and waits for the user
    QObject::connect(&look, &QTimer::timeout, [&words, &look] {
        if (auto* dialog = QApplication::activeModalWidget()) {
            words = dialog->findChild<QLabel*>("LblPreviewSummary")->text().toStdString();
            dialog->close();
            look.stop();
        }
    });
    look.start(20);
    editor->PicPreview_MouseDown();
    EXPECT_EQ(words, "Total time: 0.50 s");
    EXPECT_EQ(stored(0), "");
}
