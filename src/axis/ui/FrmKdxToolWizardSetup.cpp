#include "FrmKdxToolWizardSetup.h"

#include "CloseHold.h"
#include "FrmKdxToolSetAxis.h"
#include "ListBoxes.h"

#include "axis/LimitList.h"
#include "axis/MotorList.h"
#include "core/qt/Latin1.h"
#include "core/ui/CentreOnScreen.h"
#include "core/ui/FrmMsgBox.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace korval {

namespace {

template <typename Widget> Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

} // namespace

FrmKdxToolWizardSetup::FrmKdxToolWizardSetup()
    : FormBase("FrmKdxToolWizardSetup", "KDX Axis Setup Wizard"),
      wizard_(App().kdx, App().delay, App().prompts, menus_, *this) {
    // A window of its own: the main window is disabled while a page waits, this one is not.
    setWindowFlags(Qt::Dialog);
    auto* grid = new QGridLayout(this);
    instructions_ = named(new QLabel(this), "LblInstructions");
    instructions_->setWordWrap(true);

    frameMotor_ = named(new QGroupBox("Motor", this), "FrameMotor");
    auto* motorGrid = new QGridLayout(frameMotor_);
    lblSetBy_ = named(new QLabel("Set By:", frameMotor_), "LblSetBy");
    setBy_ = named(new QComboBox(frameMotor_), "CmbSetBy");
    lblMotor_ = named(new QLabel("Setting:", frameMotor_), "LblMotorSetting");
    motor_ = named(new QComboBox(frameMotor_), "CmbMotorSetting");
    motorGrid->addWidget(lblSetBy_, 0, 0);
    motorGrid->addWidget(setBy_, 0, 1);
    motorGrid->addWidget(lblMotor_, 1, 0);
    motorGrid->addWidget(motor_, 1, 1);
    motorGrid->setColumnStretch(1, 1);

    frameLimit_ = named(new QGroupBox("Limits", this), "FrameLimit");
    limits_ = named(new QComboBox(frameLimit_), "CmbLimits");
    (new QVBoxLayout(frameLimit_))->addWidget(limits_);

    frameTest_ = named(new QGroupBox("Test Motor", this), "FrameTestMotor");
    auto* testGrid = new QGridLayout(frameTest_);
    test_ = new PictureButton("PicTestMotor", Symbol::TestMotor, frameTest_);
    test_->setToolTip("Test Motor Movement");
    lblCurrentPosition_ = named(new QLabel("Current Position", frameTest_), "LblCurrentPosition");
    position_ = named(new QLineEdit(frameTest_), "TxtPosition");
    position_->setReadOnly(true);
    lblPosition_ = named(new QLabel("Steps", frameTest_), "LblPosition");
    testGrid->addWidget(test_, 0, 0, 2, 1);
    testGrid->addWidget(lblCurrentPosition_, 0, 1, 1, 2);
    testGrid->addWidget(position_, 1, 1);
    testGrid->addWidget(lblPosition_, 1, 2);

    message_ = named(new QLabel("Please Wait", this), "LblMsg");
    back_ = new PictureButton("PicBack", Symbol::Back, this);
    next_ = new PictureButton("PicNext", Symbol::Next, this);
    cancel_ = new PictureButton("PicCancel", Symbol::Abort, this);
    back_->setToolTip("Back");
    next_->setToolTip("Next");
    cancel_->setToolTip("Cancel");

    // One page shows one frame, in the same place: the buttons line up with its top.
    auto* frames = new QVBoxLayout();
    frames->addWidget(frameMotor_);
    frames->addWidget(frameLimit_);
    frames->addWidget(frameTest_);
    frames->addWidget(message_);
    frames->addStretch(1);
    auto* buttons = new QVBoxLayout();
    buttons->addWidget(back_);
    buttons->addWidget(next_);
    buttons->addWidget(cancel_);
    buttons->addStretch(1);
    grid->addWidget(instructions_, 0, 0, 1, 2);
    grid->addLayout(frames, 1, 0);
    grid->addLayout(buttons, 1, 1);
    grid->setColumnStretch(0, 1);
    resize(480, 230);
    CentreOnScreen(*this);

    // Load: the make and the limit lists filled, their first rows chosen.
    setBy_->addItems(ListRows(MotorMakeRows()));
    setBy_->setToolTip(SetByTip);
    limits_->addItems(ListRows(LimitRows()));
    connect(setBy_, &QComboBox::currentIndexChanged, this, [this] { CmbSetBy_Click(); });
    CmbSetBy_Click();
    connect(back_, &PictureButton::pressed, this, [this] { PicBack_MouseDown(); });
    connect(next_, &PictureButton::pressed, this, [this] { PicNext_MouseDown(); });
    connect(cancel_, &PictureButton::pressed, this, [this] { PicCancel_MouseDown(); });
    connect(test_, &PictureButton::pressed, this, [this] { PicTestMotor_MouseDown(); });
    aborted_ = App().DetectAborted.subscribe([this] {
        if (wizard_.WizardActive) {
            wizard_.Cancelled = true;
        }
    });
}

FrmKdxToolWizardSetup::~FrmKdxToolWizardSetup() {
    App().DetectAborted.unsubscribe(aborted_);
}

FrmKdxToolSetAxis* FrmKdxToolWizardSetup::axisTool(int axis) const {
    return App().Form<FrmKdxToolSetAxis>("FrmKdxToolSetAxis" + std::to_string(axis));
}

void FrmKdxToolWizardSetup::RunWizard() {
    const CloseHold closing([this] {
        wizard_.Cancelled = true;
        if (!stepDone_) {
            endPage(PageEnd::Cancel);
        }
    });
    wizard_.RunWizard();
}

void FrmKdxToolWizardSetup::CmbSetBy_Click() {
    // The wizard's own list: a fixed first model, nothing read from the controller.
    const auto make = MotorMakeFromRow(setBy_->currentIndex()).value_or(MotorMake::Vexta);
    FillMotorList(*motor_, make);
    motor_->setCurrentIndex(FirstMotorRow(make));
}

void FrmKdxToolWizardSetup::ShowTestMessage(bool shown) {
    message_->setVisible(shown);
    message_->repaint();
}

void FrmKdxToolWizardSetup::MirrorPosition(const QString& text) {
    position_->setText(text);
}

// ---- the buttons -------------------------------------------------------------------------

void FrmKdxToolWizardSetup::pressed(PictureButton* button, double pause, PageEnd end) {
    button->showDown();
    App().delay.TimeDelay(pause);
    button->showUp();
    endPage(end);
}

void FrmKdxToolWizardSetup::PicNext_MouseDown() {
    pressed(next_, 0.25, PageEnd::Next);
}

void FrmKdxToolWizardSetup::PicBack_MouseDown() {
    pressed(back_, 0.1, PageEnd::Back);
}

void FrmKdxToolWizardSetup::PicCancel_MouseDown() {
    pressed(cancel_, 0.25, PageEnd::Cancel);
}

void FrmKdxToolWizardSetup::PicTestMotor_MouseDown() {
    test_->showDown();
    test_->setEnabled(false);
    App().delay.TimeDelay(0.25);
    test_->showUp();
    // The page's other buttons wait for the test, which ends the page itself.
    for (auto* button : {back_, next_, cancel_}) {
        button->setEnabled(false);
    }
    auto* tool = axisTool(wizard_.CurrentAxis);
    const auto outcome =
        tool != nullptr ? tool->PicTestMotor_MouseDown() : MotorTestOutcome::NotStarted;
    for (auto* button : {back_, next_, cancel_, test_}) {
        button->setEnabled(true);
    }
    if (!stepDone_) { // unless the wizard was ended meanwhile
        endPage(ClsKdxWizard::AfterTest(outcome));
    }
}

void FrmKdxToolWizardSetup::endPage(PageEnd end) {
    end_ = end;
    hide();
    stepDone_ = true;
    if (page_ != nullptr) {
        page_->quit();
    }
}

void FrmKdxToolWizardSetup::closeEvent(QCloseEvent* event) {
    // The one instance lives on: a close hides it, and ends a waiting page as Cancel does.
    event->ignore();
    if (!stepDone_) {
        endPage(PageEnd::Cancel);
    }
    hide();
}

// ---- the pages ---------------------------------------------------------------------------

void FrmKdxToolWizardSetup::ShowMessage(const std::string& text) {
    if (auto* box = App().Form<FrmMsgBox>("FrmMsgBox")) {
        box->SetMessage(Latin1(text));
        box->show();
        box->repaint();
    }
}

void FrmKdxToolWizardSetup::HideMessage() {
    if (auto* box = App().Form<FrmMsgBox>("FrmMsgBox")) {
        box->hide();
    }
}

void FrmKdxToolWizardSetup::DetectKdx() {
    auto& app = App();
    if (auto* detect = app.FindForm("FrmKdxToolDetect")) {
        detect->ShowWindow();
        detect->repaint();
    }
    // As a press on the auto-detect picture does it; it returns when the search has ended.
    if (auto* autoDetect = app.mdi->Button("PicAutoDetect")) {
        emit autoDetect->pressed();
    }
}

void FrmKdxToolWizardSetup::MarkAxisTools(bool wizardDriven) {
    for (int axis = 1; axis <= 4; ++axis) {
        if (auto* tool = axisTool(axis)) {
            tool->ShadeLists(wizardDriven);
        }
    }
}

void FrmKdxToolWizardSetup::HideAxisTools() {
    for (int axis = 1; axis <= 4; ++axis) {
        HideAxisTool(axis);
    }
}

void FrmKdxToolWizardSetup::HideAxisTool(int axis) {
    if (auto* tool = axisTool(axis)) {
        tool->HideWindow();
    }
}

void FrmKdxToolWizardSetup::LoadAxis(int axis) {
    if (auto* tool = axisTool(axis)) {
        tool->ShowWindow();
        tool->MatchWithKDX();
        setBy_->setCurrentIndex(tool->CmbSetBy()->currentIndex());
        motor_->setCurrentIndex(tool->CmbMotorSetting()->currentIndex());
        limits_->setCurrentIndex(tool->CmbLimits()->currentIndex());
    }
    hideEveryControl();
}

void FrmKdxToolWizardSetup::hideEveryControl() {
    for (auto* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        control->hide();
    }
}

std::vector<QWidget*> FrmKdxToolWizardSetup::controlsOf(WizardPage page) const {
    switch (page) {
    case WizardPage::Make:
        return {frameMotor_, lblSetBy_, setBy_};
    case WizardPage::Model:
        return {frameMotor_, lblMotor_, motor_};
    case WizardPage::Limits:
        return {frameLimit_, limits_};
    case WizardPage::Test:
        break;
    }
    return {frameTest_, test_, lblCurrentPosition_, position_, lblPosition_};
}

PageEnd FrmKdxToolWizardSetup::ShowPage(WizardPage page, const std::string& instruction) {
    if (wizard_.Cancelled) {
        return PageEnd::Cancel; // ended while the axis was loading
    }
    for (auto* frame : {frameMotor_, frameLimit_, frameTest_}) {
        for (auto* control : frame->findChildren<QWidget*>()) {
            control->hide();
        }
    }
    hideEveryControl();
    instructions_->setText(Latin1(instruction));
    auto shown = controlsOf(page);
    shown.insert(shown.end(), {instructions_, back_, next_, cancel_});
    for (auto* control : shown) {
        control->show();
    }
    stepDone_ = false;
    ShowWindow();
    if (!stepDone_) {
        QEventLoop loop;
        page_ = &loop;
        loop.exec();
        page_ = nullptr;
    }
    return end_;
}

void FrmKdxToolWizardSetup::ApplyPage(WizardPage page) {
    auto* tool = axisTool(wizard_.CurrentAxis);
    if (tool == nullptr) {
        return;
    }
    switch (page) {
    case WizardPage::Make:
        tool->CmbSetBy()->setCurrentIndex(setBy_->currentIndex());
        break;
    case WizardPage::Model:
        tool->CmbMotorSetting()->setCurrentIndex(motor_->currentIndex());
        break;
    case WizardPage::Limits:
        tool->CmbLimits()->setCurrentIndex(limits_->currentIndex());
        break;
    case WizardPage::Test:
        break;
    }
}

void FrmKdxToolWizardSetup::SetMainWindowEnabled(bool enabled) {
    App().mdi->setEnabled(enabled);
}

} // namespace korval
