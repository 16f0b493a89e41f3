#include "FrmKdxToolSetAxis.h"

#include "CloseHold.h"
#include "FrmKdxToolWizardSetup.h"
#include "ListBoxes.h"

#include "axis/AxisMatch.h"
#include "axis/LimitList.h"
#include "axis/MotorConfigsDocument.h"
#include "core/Numbers.h"
#include "core/qt/Latin1.h"
#include "core/ui/FrmMsgBox.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/LineHold.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QUrl>
#include <QVBoxLayout>

namespace korval {

namespace {

QComboBox* combo(const char* name, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    return box;
}

QLabel* label(const char* name, const char* text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    return l;
}

int number(const std::string& text) {
    return ToInt32(Val(text)).value_or(0);
}

FrmKdxToolWizardSetup* wizardWindow() {
    return App().Form<FrmKdxToolWizardSetup>("FrmKdxToolWizardSetup");
}

bool wizardShown() {
    const auto* wizard = wizardWindow();
    return wizard != nullptr && wizard->IsShown();
}

} // namespace

FrmKdxToolSetAxis::FrmKdxToolSetAxis(int axis)
    : FormBase("FrmKdxToolSetAxis", QString("Axis %1").arg(axis)) {
    SetVirtualName("FrmKdxToolSetAxis" + std::to_string(axis));
    auto* layout = new QVBoxLayout(this);

    auto* current = new QGroupBox("Current Motor", this);
    current->setObjectName("FrameCurrentMotor");
    auto* currentRow = new QHBoxLayout(current);
    axis_ = combo("CmbAxis", current);
    axis_->addItems({"1", "2", "3", "4"});
    axis_->hide(); // follows the option buttons: the record and the commands name one axis
    for (int n = 1; n <= 4; ++n) {
        opt_[n - 1] = new QRadioButton(QString::number(n), current);
        opt_[n - 1]->setObjectName(QString("OptMotor%1").arg(n));
        currentRow->addWidget(opt_[n - 1]);
        connect(opt_[n - 1], &QRadioButton::toggled, this, [this, n](bool on) {
            if (on) {
                OptMotor_Click(n);
            }
        });
    }

    auto* frameMotor = new QGroupBox("Motor", this);
    frameMotor->setObjectName("FrameMotor");
    auto* motorGrid = new QGridLayout(frameMotor);
    setBy_ = combo("CmbSetBy", frameMotor);
    motor_ = combo("CmbMotorSetting", frameMotor);
    help_ = new PictureButton("PicHelpMotor", Symbol::Help, frameMotor);
    help_->setToolTip("Help");
    motorGrid->addWidget(label("LblSetBy", "Set By:", frameMotor), 0, 0);
    motorGrid->addWidget(setBy_, 0, 1);
    motorGrid->addWidget(help_, 0, 2, 2, 1);
    motorGrid->addWidget(label("LblMotorSetting", "Setting:", frameMotor), 1, 0);
    motorGrid->addWidget(motor_, 1, 1);
    motorGrid->setColumnStretch(1, 1);

    auto* frameLimit = new QGroupBox("Limits", this);
    frameLimit->setObjectName("FrameLimit");
    limits_ = combo("CmbLimits", frameLimit);
    (new QVBoxLayout(frameLimit))->addWidget(limits_);

    auto* frameTest = new QGroupBox("Test Motor", this);
    frameTest->setObjectName("FrameTestMotor");
    auto* testRow = new QHBoxLayout(frameTest);
    test_ = new PictureButton("PicTestMotor", Symbol::TestMotor, frameTest);
    test_->setToolTip("Test Motor Movement");
    position_ = new QLineEdit(frameTest);
    position_->setObjectName("TxtPosition");
    position_->setReadOnly(true);
    testRow->addWidget(test_);
    testRow->addWidget(label("LblCurrentPosition", "Current Position", frameTest));
    testRow->addWidget(position_, 1);
    testRow->addWidget(label("LblPosition", "Steps", frameTest));

    layout->addWidget(current);
    layout->addWidget(frameMotor);
    layout->addWidget(frameLimit);
    layout->addWidget(frameTest);
    layout->addStretch(1);
    resize(420, 330);

    // Load: this copy's axis selected, the lists filled, the first make and limit type chosen.
    opt_[axis - 1]->setChecked(true);
    setBy_->addItems(ListRows(MotorMakeRows()));
    setBy_->setToolTip(SetByTip);
    FillMotorList(*motor_, MotorMake::Vexta);
    selectMotorRow(guard_.LastVextaIndex);
    limits_->addItems(ListRows(LimitRows()));
    selectLimitRow(0);

    connect(setBy_, &QComboBox::currentIndexChanged, this, [this] { CmbSetBy_Click(); });
    connect(motor_, &QComboBox::currentIndexChanged, this, [this] { CmbMotorSetting_Click(); });
    connect(limits_, &QComboBox::currentIndexChanged, this, [this] { CmbLimits_Click(); });
    connect(help_, &PictureButton::pressed, this, [this] { PicHelpMotor_MouseDown(); });
    connect(test_, &PictureButton::pressed, this, [this] { PicTestMotor_MouseDown(); });
    connect(position_, &QLineEdit::textChanged, this, [](const QString& text) {
        if (auto* wizard = wizardWindow()) {
            wizard->MirrorPosition(text);
        }
    });
    follow_.setInterval(FollowInterval);
    connect(&follow_, &QTimer::timeout, this, [this] { followPosition(); });
}

FrmKdxToolSetAxis::~FrmKdxToolSetAxis() {
    while (hourglass_ > 0) {
        SetHourglass(false);
    }
}

MotorMake FrmKdxToolSetAxis::make() const {
    return MotorMakeFromRow(setBy_->currentIndex()).value_or(MotorMake::Vexta);
}

ClsKdxAxis* FrmKdxToolSetAxis::record() const {
    return App().axes.ByNumber(axis_->currentIndex() + 1);
}

void FrmKdxToolSetAxis::selectMotorRow(int row) {
    {
        const QSignalBlocker quiet(motor_);
        motor_->setCurrentIndex(row);
    }
    CmbMotorSetting_Click();
}

void FrmKdxToolSetAxis::selectLimitRow(int row) {
    {
        const QSignalBlocker quiet(limits_);
        limits_->setCurrentIndex(row);
    }
    CmbLimits_Click();
}

void FrmKdxToolSetAxis::OptMotor_Click(int axis) {
    AxisNumber = axis;
    axis_->setCurrentIndex(axis - 1);
}

void FrmKdxToolSetAxis::CmbSetBy_Click() {
    const auto chosen = make();
    FillMotorList(*motor_, chosen);
    auto* rec = record();
    if (!IsShown() || rec == nullptr || AxisNumber < 1 || AxisNumber > 4) {
        selectMotorRow(-1); // nothing read: the make's last good model stands
        return;
    }
    selectMotorRow(number(rec->GetPrevMotorSetting(AxisNumber)));
    if (const auto row = LimitValueToListIndex(number(rec->GetPrevLimitSetting(AxisNumber)))) {
        selectLimitRow(*row);
    }
}

void FrmKdxToolSetAxis::CmbMotorSetting_Click() {
    const int clicked = motor_->currentIndex();
    const int row = guard_.Pick(make(), clicked);
    if (row != clicked) {
        const QSignalBlocker quiet(motor_);
        motor_->setCurrentIndex(row);
    }
    MotorSettingValue = row;
    if (auto* rec = record()) {
        rec->SetMotorModel(Latin1(motor_->currentText()));
    }
}

void FrmKdxToolSetAxis::CmbLimits_Click() {
    if (auto* rec = record()) {
        rec->SetLimitModel(Latin1(limits_->currentText()));
    }
    LimitSettingValue = ListIndexToLimitValue(limits_->currentIndex());
}

void FrmKdxToolSetAxis::MatchWithKDX() {
    if (AxisNumber >= 1 && AxisNumber <= 4) {
        MatchAxisData(AxisNumber);
    }
}

void FrmKdxToolSetAxis::MatchAxisData(std::int32_t axis) {
    auto& app = App();
    auto* rec = app.axes.ByNumber(axis);
    if (rec == nullptr) {
        return;
    }
    const auto stored = [&](const char* key) {
        return number(app.iniFile.ProfileGetItem(GetVirtualName(), std::string(key) + ".ListIndex",
                                                 "", app.folders.settingsFile));
    };
    const auto match = MatchAxisChoice(stored("CmbSetBy"), stored("CmbMotorSetting"), make(),
                                       number(rec->GetPrevMotorSetting(axis)),
                                       number(rec->GetPrevLimitSetting(axis)));
    if (setBy_->currentIndex() != static_cast<int>(match.make)) {
        const QSignalBlocker quiet(setBy_);
        setBy_->setCurrentIndex(static_cast<int>(match.make));
        FillMotorList(*motor_, match.make);
    }
    selectMotorRow(match.motorRow);
    if (match.limitRow) {
        selectLimitRow(*match.limitRow);
    }
}

void FrmKdxToolSetAxis::PicHelpMotor_MouseDown() {
    help_->showDown();
    auto& app = App();
    if (const auto file = MotorConfigsDocument(app.folders.application, app.prompts)) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromLocal8Bit(file->c_str())));
    }
}

MotorTestOutcome FrmKdxToolSetAxis::PicTestMotor_MouseDown() {
    auto& app = App();
    test_->showDown();
    app.delay.TimeDelay(0.25);
    test_->setEnabled(false);
    ShadeLists(true);
    test_->showUp();

    MotorTestResult result;
    if (auto* rec = record(); rec != nullptr && AxisNumber >= 1 && AxisNumber <= 4) {
        const LineHold hold; // the terminal keeps off the line meanwhile
        stopRequested_ = false;
        const CloseHold closing([this] { stopRequested_ = true; });
        const int stop = app.mdi->Stopped.subscribe([this] { stopRequested_ = true; });
        MotorTest test(app.kdx, app.delay, app.prompts, [this] { return stopRequested_; });
        result = test.Run(*rec, AxisNumber, make(), MotorSettingValue, LimitSettingValue, *this);
        app.mdi->Stopped.unsubscribe(stop);
        follow_.stop();
        PrevMotorSettingValue = result.prevMotorSetting;
        PrevLimitSettingValue = result.prevLimitSetting;
    }
    test_->setEnabled(true);
    ShadeLists(false);
    return result.outcome;
}

void FrmKdxToolSetAxis::ShadeLists(bool driven) {
    const auto system = QApplication::palette();
    const QColor back = driven ? system.color(QPalette::Disabled, QPalette::Text)
                               : system.color(QPalette::Active, QPalette::Base);
    for (auto* box : {setBy_, motor_, limits_}) {
        QPalette palette = box->palette();
        palette.setColor(QPalette::Base, back);
        palette.setColor(QPalette::Button, driven ? back : system.color(QPalette::Button));
        box->setPalette(palette);
    }
}

void FrmKdxToolSetAxis::ShowPleaseWait(bool shown) {
    // The position follows the axis for as long as the message says the motor is busy.
    if (shown) {
        follow_.start();
    } else {
        follow_.stop();
    }
    if (wizardShown()) {
        wizardWindow()->ShowTestMessage(shown);
        return;
    }
    if (auto* message = App().Form<FrmMsgBox>("FrmMsgBox")) {
        if (shown) {
            message->SetMessage("Please Wait");
            message->show();
            message->repaint();
        } else {
            message->hide();
        }
    }
}

void FrmKdxToolSetAxis::SetHourglass(bool busy) {
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ++hourglass_;
    } else if (hourglass_ > 0) {
        QApplication::restoreOverrideCursor();
        --hourglass_;
    }
}

void FrmKdxToolSetAxis::ShowPosition(const std::string& steps) {
    position_->setText(Latin1(steps));
}

void FrmKdxToolSetAxis::SelectSettings(int motorSetting, int limitSetting) {
    selectMotorRow(motorSetting);
    if (const auto row = LimitValueToListIndex(limitSetting)) {
        selectLimitRow(*row);
    }
}

void FrmKdxToolSetAxis::followPosition() {
    auto steps = App().kdx.GetCurrentMotorPosition(AxisNumber);
    if (steps.find_first_of("-0123456789") == std::string::npos) {
        return; // no answer this time: the last position stands
    }
    position_->setText(Latin1(ClsKdxAxis::FormatPosition(steps)));
}

bool FrmKdxToolSetAxis::eventFilter(QObject* watched, QEvent* event) {
    if (watched == SubWindow() && event->type() == QEvent::Close) {
        // Closed by the user: what the lists show is kept at once, for MatchAxisData to prefer.
        auto& app = App();
        app.classIniFile.BeginBatch(); // the section is replaced in one write of the file
        app.classIniFile.WriteIni(Walked(), app.folders.settingsFile);
        app.classIniFile.EndBatch();
    }
    return FormBase::eventFilter(watched, event);
}

} // namespace korval
