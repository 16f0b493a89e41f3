#include "ManualPictures.h"

#include "axis/AttachedChoice.h"
#include "axis/ui/FrmKdxToolSetAttached.h"
#include "axis/ui/FrmKdxToolSetMotorCalc.h"
#include "axis/ui/FrmKdxToolWizardSetup.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PreviewPanel.h"
#include "diagnostics/ui/FrmKdxInfoDiagnostic.h"
#include "diagnostics/ui/TroubleshooterForm.h"
#include "motion/ui/AdvStepFrame.h"
#include "motion/ui/FrmKdxToolAutoReverse.h"
#include "motion/ui/FrmKdxToolQuickMoveSingle.h"
#include "scripts/ui/CodeEditor.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/FrmKdxToolTerminal.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace korval {

namespace {

// What the terminal's picture shows being asked: the firmware's version and date.
const char* const Exchange[] = {"getD0,", "getD1,"};

// The script editor's picture: a short program, laid out with comments.
const char* const Script = "F,C,S1M2000,I1M4000,I1M-4000,R";

// Typed into a box and ended with Enter, as a user enters a value.
void enter(QLineEdit* box, const QString& text) {
    box->setText(text);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &press);
}

} // namespace

ManualPictures::ManualPictures(KorvalServices& app, Bench bench)
    : app_(app), bench_(std::move(bench)) {}

std::span<const ManualPictures::Picture> ManualPictures::Pictures() {
    using M = ManualPictures;
    // In this order: the main window before any tool window opens, the QuickMove's move before
    // the positions show it, the chooser before the device window it opens, and the scans
    // before a troubleshooter holds the line.
    static const Picture pictures[] = {
        {"main-window", nullptr, "MdiKorval", &M::onLine},
        {"port-settings", "MnuToolsManualDetect", "FrmKdxToolSetPort", &M::asOpened},
        {"terminal", "MnuToolsTerminal", "FrmKdxToolTerminal", &M::exchange},
        {"script-editor", "MnuToolsScriptEditor", "FrmKdxToolScriptEditor", &M::script},
        {"quickmove-single", "MnuToolsQuickMoveSingle", "FrmKdxToolQuickMoveSingle", &M::moved},
        {"quickmove-simultaneous", "MnuToolsQuickMoveSimultaneous", "FrmKdxToolQuickMoveMulti",
         &M::asOpened},
        {"axis-positions", "MnuToolsAxisPositions", "FrmKdxToolAxisPositions", &M::afterTheMove},
        {"virtual-jog", "MnuToolsVirtualJog", "FrmKdxToolVirtualJog", &M::asOpened},
        {"autoreverse", "MnuToolsAutoReverse", "FrmKdxToolAutoReverse", &M::programChosen},
        {"autoreverse-preview-tab", "MnuToolsAutoReverse", "FrmKdxToolAutoReverse", &M::previewed},
        {"axis-setup", "MnuToolsSetUpAxis1", "FrmKdxToolSetAxis1", &M::asOpened},
        {"setup-wizard", nullptr, "FrmKdxToolWizardSetup", &M::firstPage},
        {"motor-calculator", "MnuToolsSetUpMotorCalculator", "FrmKdxToolSetMotorCalc",
         &M::calculated},
        {"attached-devices", "MnuToolsSetUpAttachedAxis1", "FrmKdxToolSetAttachment1",
         &M::jogButtonsChosen},
        {"jog-buttons", nullptr, "FrmKdxToolSetJogButtons1", &M::deviceWindow},
        {"information-panel", "MnuToolsDiagProcessor", "FrmKdxInfoProcessor", &M::asOpened},
        {"complete-diagnostic", "MnuToolsDiag", "FrmKdxInfoDiagnostic", &M::scanned},
        {"troubleshooter", "MnuToolsTroubleshootLimits", "FrmKdxToolTroubleLimits",
         &M::limitPressed},
        {"administrator", nullptr, "FrmKdxAdmin", &M::withoutPassword},
        {"driver-recovery", "MnuDriverRecovery", "FrmKdxDriverRecovery", &M::asOpened},
    };
    return pictures;
}

std::vector<std::string> ManualPictures::Names() {
    std::vector<std::string> names;
    for (const auto& p : Pictures()) {
        names.emplace_back(p.name);
    }
    return names;
}

std::vector<std::string> ManualPictures::Save(const std::string& folder) {
    std::vector<std::string> faults;
    QDir().mkpath(QString::fromStdString(folder));
    for (const auto& p : Pictures()) {
        if (auto fault = take(p, folder); !fault.empty()) {
            faults.push_back(p.name + (": " + fault));
        }
    }
    return faults;
}

std::string ManualPictures::take(const Picture& picture, const std::string& folder) {
    auto* form = app_.FindForm(picture.form);
    if (form == nullptr) {
        return std::string("no window ") + picture.form;
    }
    if (picture.menu != nullptr) {
        auto* entry = app_.mdi->Menu(picture.menu);
        if (entry == nullptr || !entry->isEnabled()) {
            return std::string("no menu entry ") + picture.menu;
        }
        entry->trigger();
    }
    app_.delay.TimeDelay(0.1); // laid out and drawn
    const auto pixmap = (this->*picture.stage)(*form);
    if (pixmap.isNull()) {
        return "nothing to show";
    }
    const auto file = QDir(QString::fromStdString(folder)).filePath(picture.name + QString(".png"));
    return pixmap.save(file) ? "" : "cannot write " + file.toStdString();
}

QPixmap ManualPictures::grab(FormBase& form) {
    QWidget* frame = form.SubWindow();
    return (frame != nullptr ? frame : static_cast<QWidget*>(&form))->grab();
}

void ManualPictures::widen(FormBase& form, int width, int height) {
    if (auto* frame = form.SubWindow()) {
        frame->resize(width, height);
    }
}

bool ManualPictures::waitFor(const std::function<bool()>& done, double seconds) {
    constexpr double Step = 0.05;
    for (double waited = 0; waited < seconds; waited += Step) {
        if (done()) {
            return true;
        }
        app_.delay.TimeDelay(Step);
    }
    return done();
}

// ---- the stages ------------------------------------------------------------------------------

QPixmap ManualPictures::asOpened(FormBase& form) {
    return grab(form);
}

QPixmap ManualPictures::onLine(FormBase& form) {
    waitFor([this] { return app_.mdi->LblStatusKdx()->text() == "ONLINEREADY"; }, 3);
    return grab(form);
}

QPixmap ManualPictures::exchange(FormBase& form) {
    auto& terminal = static_cast<FrmKdxToolTerminal&>(form);
    terminal.ChkShowSent()->setChecked(true);
    for (const char* text : Exchange) {
        terminal.TxtSend()->setPlainText(text);
        terminal.CmdSend_Click();
        const auto shown = terminal.TxtReceive()->toPlainText().size();
        // The reply is complete once its line has ended.
        waitFor(
            [&] {
                return terminal.TxtReceive()->toPlainText().size() > shown + 3 &&
                       terminal.TxtReceive()->toPlainText().endsWith('\n');
            },
            2);
    }
    return grab(form);
}

QPixmap ManualPictures::script(FormBase& form) {
    auto& editor = static_cast<FrmKdxToolScriptEditor&>(form);
    widen(form, 560, 320); // as a user would, to read the comments
    editor.SetText(Script);
    editor.FormatCode(true); // the format button, answered with comments
    return grab(form);
}

QPixmap ManualPictures::moved(FormBase& form) {
    // Axis 1 in millimetres, 25.4 mm at 50.8 mm a second: 1000 steps.
    auto& quickMove = static_cast<FrmKdxToolQuickMoveSingle&>(form);
    enter(quickMove.FrameAdvStep(1)->TxtAdvStep(), "0.0254");
    enter(quickMove.FrameAdvStep(1)->TxtAdvStepUnits(), "mm");
    enter(quickMove.TxtVelocity(), "50.8");
    enter(quickMove.TxtDistance(), "25.4");
    quickMove.PicMove_MouseDown(QuickMoveDirection::Positive);
    return grab(form);
}

QPixmap ManualPictures::afterTheMove(FormBase& form) {
    app_.delay.TimeDelay(0.6); // a round of its timer or two
    return grab(form);
}

QPixmap ManualPictures::programChosen(FormBase& form) {
    // From the negative limit, a pause, 1800 steps out and back, three times.
    form.findChild<QComboBox*>("CmbHomeStyle")->setCurrentIndex(1);
    form.findChild<QComboBox*>("CmbHomeIO")->setCurrentIndex(1);
    enter(form.findChild<QLineEdit*>("TxtHomePosition"), "300");
    enter(form.findChild<QLineEdit*>("TxtMovePosition"), "1800");
    enter(form.findChild<QLineEdit*>("TxtMoveSpeed"), "3000");
    enter(form.findChild<QLineEdit*>("TxtRepeat"), "3");
    return grab(form);
}

QPixmap ManualPictures::previewed(FormBase& form) {
    auto& tool = static_cast<FrmKdxToolAutoReverse&>(form);
    enter(tool.Preview()->Travel(), "2500");
    tool.ShowPreview();
    const bool drawn = waitFor([&tool] { return !tool.Preview()->Summary()->text().isEmpty(); }, 5);
    return drawn ? grab(form) : QPixmap();
}

QPixmap ManualPictures::firstPage(FormBase& form) {
    auto& wizard = static_cast<FrmKdxToolWizardSetup&>(form);
    QPixmap page;
    // The wizard waits for its user on each page: the picture is taken from the first one,
    // which is then cancelled. A wizard that shows no page is closed, which ends it too.
    QTimer user;
    int rounds = 0;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (wizard.isVisible() && wizard.CmbSetBy()->isVisible()) {
            user.stop();
            app_.delay.TimeDelay(0.2);
            page = grab(form);
            wizard.PicCancel_MouseDown();
        } else if (++rounds > 400) {
            user.stop();
            wizard.close();
        }
    });
    user.start(50);
    app_.mdi->Menu("MnuWizard")->trigger();
    return page;
}

QPixmap ManualPictures::calculated(FormBase& form) {
    auto& calculator = static_cast<FrmKdxToolSetMotorCalc&>(form);
    calculator.OptNumOfWires6()->click();
    enter(calculator.TxtCurrent(), "1");
    enter(calculator.TxtInductance(), "2");
    calculator.CmdCalcMtrSetting()->click();
    return grab(form);
}

QPixmap ManualPictures::jogButtonsChosen(FormBase& form) {
    static_cast<FrmKdxToolSetAttached&>(form).Box(AttachedDevice::JogSpeeds)->setChecked(true);
    return grab(form);
}

QPixmap ManualPictures::deviceWindow(FormBase& form) {
    return form.IsShown() ? grab(form) : QPixmap(); // shown by the chooser's box
}

QPixmap ManualPictures::scanned(FormBase& form) {
    auto& diagnostic = static_cast<FrmKdxInfoDiagnostic&>(form);
    if (!diagnostic.PicRefresh_MouseDown()) {
        return {};
    }
    widen(form, 520, 480);
    diagnostic.TxtInfo()->moveCursor(QTextCursor::Start); // the report from its beginning
    return grab(form);
}

QPixmap ManualPictures::limitPressed(FormBase& form) {
    auto& troubleshooter = static_cast<TroubleshooterForm&>(form);
    app_.delay.TimeDelay(0.5); // the switches as they were, then one pressed
    bench_("limit 1 + on");
    waitFor([&] { return !troubleshooter.TxtTimeline()->toPlainText().isEmpty(); }, 2);
    auto pixmap = grab(form);
    troubleshooter.HideWindow(); // it stops polling
    bench_("limit 1 + off");
    return pixmap;
}

QPixmap ManualPictures::withoutPassword(FormBase& form) {
    form.ShowWindow(); // its menu entry asks the administrator's password first
    app_.delay.TimeDelay(0.2);
    return grab(form);
}

} // namespace korval
