#include "FrmKdxToolAutoReverse.h"

#include "core/qt/Latin1.h"
#include "core/ui/HourGlass.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"
#include "core/ui/PictureButton.h"
#include "core/ui/PreviewPanel.h"
#include "motion/AutoReverseActions.h"
#include "motion/AutoReverseLayout.h"
#include "motion/AutoReverseLists.h"
#include "motion/AutoReversePreview.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace korval {

namespace {

using S = AutoReverseSettings;

struct TextField {
    const char* name;
    std::string S::*field;
    AutoReverseBox box;
};

const TextField TextFields[] = {
    {"TxtHomePosition", &S::TxtHomePosition, AutoReverseBox::TxtHomePosition},
    {"TxtHomeSpeed", &S::TxtHomeSpeed, AutoReverseBox::TxtHomeSpeed},
    {"TxtHomePause", &S::TxtHomePause, AutoReverseBox::TxtHomePause},
    {"TxtMovePosition", &S::TxtMovePosition, AutoReverseBox::TxtMovePosition},
    {"TxtMoveSpeed", &S::TxtMoveSpeed, AutoReverseBox::TxtMoveSpeed},
    {"TxtReturnPause", &S::TxtReturnPause, AutoReverseBox::TxtReturnPause},
    {"TxtReturnSpeed", &S::TxtReturnSpeed, AutoReverseBox::TxtReturnSpeed},
    {"TxtRepeat", &S::TxtRepeat, AutoReverseBox::TxtRepeat},
};

// Each combo's index, as the settings keep it, and what its click does.
struct ComboField {
    const char* name;
    int (*get)(const S&);
    void (*set)(S&, int);
    void (*click)(AutoReverseGenerator&, int);
};

template <typename Enum, Enum S::*field> int getIndex(const S& s) {
    return static_cast<int>(s.*field);
}
template <typename Enum, Enum S::*field> void setIndex(S& s, int i) {
    s.*field = static_cast<Enum>(i);
}

const ComboField ComboFields[] = {
    {"CmbHomeStyle", getIndex<StartStyle, &S::CmbHomeStyle>, setIndex<StartStyle, &S::CmbHomeStyle>,
     [](AutoReverseGenerator& g, int i) { g.ChooseHomeStyle(i); }},
    {"CmbHomeInstance", getIndex<StartInstance, &S::CmbHomeInstance>,
     setIndex<StartInstance, &S::CmbHomeInstance>,
     [](AutoReverseGenerator& g, int i) { g.ChooseHomeInstance(i); }},
    {"CmbVelocityStyleHome", getIndex<int, &S::CmbVelocityStyleHome>,
     setIndex<int, &S::CmbVelocityStyleHome>,
     [](AutoReverseGenerator& g, int i) { g.ChooseVelocityStyle(SpeedBox::Home, i); }},
    {"CmbHomeIO", getIndex<UserAction, &S::CmbHomeIO>, setIndex<UserAction, &S::CmbHomeIO>,
     [](AutoReverseGenerator& g, int i) { g.ChooseHomeIO(i); }},
    {"CmbMovePosition", getIndex<MoveMode, &S::CmbMovePosition>,
     setIndex<MoveMode, &S::CmbMovePosition>,
     [](AutoReverseGenerator& g, int i) { g.ChooseMovePosition(i); }},
    {"CmbVelocityStyleMove", getIndex<int, &S::CmbVelocityStyleMove>,
     setIndex<int, &S::CmbVelocityStyleMove>,
     [](AutoReverseGenerator& g, int i) { g.ChooseVelocityStyle(SpeedBox::Move, i); }},
    {"CmbReturnPosition", getIndex<UserAction, &S::CmbReturnPosition>,
     setIndex<UserAction, &S::CmbReturnPosition>,
     [](AutoReverseGenerator& g, int i) { g.ChooseReturnPosition(i); }},
    {"CmbVelocityStyleReturn", getIndex<int, &S::CmbVelocityStyleReturn>,
     setIndex<int, &S::CmbVelocityStyleReturn>,
     [](AutoReverseGenerator& g, int i) { g.ChooseVelocityStyle(SpeedBox::Return, i); }},
    {"CmbRepeat", getIndex<RepeatMode, &S::CmbRepeat>, setIndex<RepeatMode, &S::CmbRepeat>,
     [](AutoReverseGenerator& g, int i) { g.ChooseRepeat(i); }},
};

struct SectionField {
    const char* box;
    std::string AutoReverseSections::*section;
    const char* label;
    const char* caption;
};

const SectionField SectionFields[] = {
    {"TxtOnline", &AutoReverseSections::TxtOnline, "LblKdxCodeOnline", "Online"},
    {"TxtHomeType", &AutoReverseSections::TxtHomeType, "LblKdxCodeHome", "Start"},
    {"TxtHomeUserIO", &AutoReverseSections::TxtHomeUserIO, "LblKdxCodeHomeIO", "Options"},
    {"TxtMoveType", &AutoReverseSections::TxtMoveType, "LblKdxCodeMove", "Move"},
    {"TxtReturnType", &AutoReverseSections::TxtReturnType, "LblKdxCodeReturn", "Return"},
    {"TxtRepeatType", &AutoReverseSections::TxtRepeatType, "LblKdxCodeRepeat", "Do # of Times"},
    {"TxtRunSaveType", &AutoReverseSections::TxtRunSaveType, "LblKdxCodeRunSave", "Run / Save"},
};

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_Right || key == Qt::Key_Down;
}

void setTextQuietly(QLineEdit* box, const std::string& text) {
    const auto shown = Latin1(text);
    if (box->text() != shown) {
        const QSignalBlocker quiet(box);
        box->setText(shown);
    }
}

} // namespace

FrmKdxToolAutoReverse::FrmKdxToolAutoReverse()
    : FormBase("FrmKdxToolAutoReverse", "KDX AutoReverse"),
      kdx_(App().kdx, [this] { return IsShown(); }),
      gen_(App().prompts, App().commands.AsFormatter(), &kdx_), jog_(App().kdx) {
    views_ = new QTabWidget(this);
    views_->setObjectName("TabAutoReverse");
    auto* program = buildProgramView();
    preview_ = new PreviewPanel(
        [this](const sim::PreviewOptions& options) {
            readControls();
            auto shown = PreviewAutoReverse(gen_.settings, App().commands.AsFormatter(), options);
            return PreviewPanel::Shown{std::move(shown.result), std::move(shown.messages)};
        },
        views_);
    views_->addTab(program, "Program");
    views_->addTab(preview_, "Preview");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(views_);
    connectControls();
    gen_.UpDateHome();
    gen_.UpDateHomeOptions();
    gen_.UpDateMove();
    gen_.UpDateReturn();
    gen_.UpDateLoop();
    writeControls();
    if (App().mdi != nullptr) {
        stopped_ = App().mdi->Stopped.subscribe([this] { FormatPositions(); });
    }
    resize(920, 600);
}

FrmKdxToolAutoReverse::~FrmKdxToolAutoReverse() {
    if (App().mdi != nullptr) {
        App().mdi->Stopped.unsubscribe(stopped_);
    }
}

// ---- building --------------------------------------------------------------------------------

QWidget* FrmKdxToolAutoReverse::buildProgramView() {
    auto* page = new QWidget(views_);
    auto* settings = new QVBoxLayout();
    settings->addWidget(buildMotor());
    settings->addWidget(frames_[0] = buildStart());
    settings->addWidget(frames_[1] = buildOptions());
    settings->addWidget(frames_[2] = buildMove());
    settings->addWidget(frames_[3] = buildReturn());
    settings->addWidget(frames_[4] = buildLoop());
    settings->addStretch(1);
    auto* row = new QHBoxLayout();
    const struct {
        const char* name;
        Symbol symbol;
        const char* tip;
        void (FrmKdxToolAutoReverse::*press)();
    } pictures[] = {
        {"PicTestScript", Symbol::TestScript, "Send the program to the KDX and run it",
         &FrmKdxToolAutoReverse::PicTestScript_MouseDown},
        {"PicSaveToKdx", Symbol::SaveToKdx, "Store the program in the KDX",
         &FrmKdxToolAutoReverse::PicSaveToKdx_MouseDown},
        {"PicSaveToFileButton", Symbol::SaveScript, "Save the program as a script file",
         &FrmKdxToolAutoReverse::PicSaveToFileButton_MouseDown},
    };
    for (std::size_t i = 0; i < std::size(pictures); ++i) {
        auto* button = new PictureButton(pictures[i].name, pictures[i].symbol, page);
        button->setToolTip(pictures[i].tip);
        connect(button, &PictureButton::pressed, this,
                [this, press = pictures[i].press] { (this->*press)(); });
        buttons_[i] = button;
        row->addWidget(button);
    }
    row->addStretch(1);
    auto* code = new QVBoxLayout();
    code->addWidget(buildCode(), 1);
    code->addLayout(row);
    auto* layout = new QHBoxLayout(page);
    layout->addLayout(settings);
    layout->addLayout(code, 1);
    return page;
}

QComboBox* FrmKdxToolAutoReverse::combo(const char* name, const std::vector<std::string>& entries,
                                        QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    for (const auto& entry : entries) {
        box->addItem(Latin1(entry));
    }
    box->installEventFilter(this);
    return box;
}

QLineEdit* FrmKdxToolAutoReverse::textBox(const char* name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setMaximumWidth(110);
    return box;
}

QLabel* FrmKdxToolAutoReverse::label(const char* name, const char* caption, QWidget* parent) {
    auto* text = new QLabel(caption, parent);
    text->setObjectName(name);
    return text;
}

QPushButton* FrmKdxToolAutoReverse::jogButton(const char* name, const char* caption,
                                              TeachFrame frame, bool positive, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::pressed, this, [this, frame, positive] {
        choose([this, frame, positive] { StartTeachJog(gen_, jog_, frame, positive); });
    });
    connect(button, &QPushButton::released, this,
            [this, frame] { choose([this, frame] { EndTeachJog(gen_, jog_, kdx_, frame); }); });
    return button;
}

QGroupBox* FrmKdxToolAutoReverse::buildMotor() {
    auto* frame = new QGroupBox("Motor", this);
    frame->setObjectName("FrameMotor");
    auto* row = new QHBoxLayout(frame);
    for (int m = 1; m <= 4; ++m) {
        auto* option = new QRadioButton(QString::number(m), frame);
        option->setObjectName(QString("OptMotor%1").arg(m));
        option->setChecked(m == 1);
        connect(option, &QRadioButton::toggled, this, [this, m](bool on) {
            if (on) {
                choose([this, m] { gen_.ChooseMotor(m); });
            }
        });
        motors_[static_cast<std::size_t>(m - 1)] = option;
        row->addWidget(option);
    }
    return frame;
}

QGroupBox* FrmKdxToolAutoReverse::buildStart() {
    auto* f = new QGroupBox("Start", this);
    f->setObjectName("FrameHoming");
    auto* grid = new QGridLayout(f);
    grid->addWidget(combo("CmbHomeStyle", StartStyleList(), f), 0, 0, 1, 4);
    grid->addWidget(combo("CmbHomeInstance", StartInstanceList(), f), 1, 0, 1, 4);
    grid->addWidget(textBox("TxtHomePosition", f), 2, 0);
    grid->addWidget(label("LblHomePosition", "Steps", f), 2, 1);
    grid->addWidget(jogButton("CmdJogHomeNegative", "Jog -", TeachFrame::Home, false, f), 2, 2);
    grid->addWidget(jogButton("CmdJogHomePositive", "Jog +", TeachFrame::Home, true, f), 2, 3);
    grid->addWidget(label("LblHomeSpeed", "at Speed", f), 3, 0);
    grid->addWidget(textBox("TxtHomeSpeed", f), 3, 1);
    grid->addWidget(combo("CmbVelocityStyleHome", VelocityStyleList(), f), 3, 2, 1, 2);
    return f;
}

QGroupBox* FrmKdxToolAutoReverse::buildOptions() {
    auto* f = new QGroupBox("Options", this);
    f->setObjectName("FrameHomeIO");
    auto* row = new QHBoxLayout(f);
    row->addWidget(combo("CmbHomeIO", HomeActionList(), f));
    row->addWidget(textBox("TxtHomePause", f));
    row->addWidget(label("LblHomePause", "Seconds", f));
    row->addStretch(1);
    return f;
}

QGroupBox* FrmKdxToolAutoReverse::buildMove() {
    auto* f = new QGroupBox("Move", this);
    f->setObjectName("FrameMovePosition");
    auto* grid = new QGridLayout(f);
    grid->addWidget(combo("CmbMovePosition", MoveModeList(), f), 0, 0, 1, 4);
    grid->addWidget(textBox("TxtMovePosition", f), 1, 0);
    grid->addWidget(label("LblMovePosition", "Steps", f), 1, 1);
    grid->addWidget(jogButton("CmdJogMoveNegative", "Jog -", TeachFrame::Move, false, f), 1, 2);
    grid->addWidget(jogButton("CmdJogMovePositive", "Jog +", TeachFrame::Move, true, f), 1, 3);
    grid->addWidget(label("LblMoveSpeed", "at Speed", f), 2, 0);
    grid->addWidget(textBox("TxtMoveSpeed", f), 2, 1);
    grid->addWidget(combo("CmbVelocityStyleMove", VelocityStyleList(), f), 2, 2, 1, 2);
    return f;
}

QGroupBox* FrmKdxToolAutoReverse::buildReturn() {
    auto* f = new QGroupBox("Return", this);
    f->setObjectName("FrameReturn");
    auto* grid = new QGridLayout(f);
    // Hidden controls take no room, so "and Move to Start" follows the last one shown.
    auto* first = new QHBoxLayout();
    first->setSpacing(4);
    first->addWidget(combo("CmbReturnPosition", ReturnActionList(), f));
    first->addWidget(textBox("TxtReturnPause", f));
    first->addWidget(label("LblReturnPause", "Seconds", f));
    first->addWidget(label("LblMoveToStart", "and Move to Start", f));
    first->addStretch(1);
    grid->addLayout(first, 0, 0, 1, 3);
    grid->addWidget(label("LblReturnSpeed", "at Speed", f), 1, 0);
    grid->addWidget(textBox("TxtReturnSpeed", f), 1, 1);
    grid->addWidget(combo("CmbVelocityStyleReturn", VelocityStyleList(), f), 1, 2);
    return f;
}

QGroupBox* FrmKdxToolAutoReverse::buildLoop() {
    auto* f = new QGroupBox(this);
    f->setObjectName("FrameLoop");
    auto* row = new QHBoxLayout(f);
    row->addWidget(combo("CmbRepeat", RepeatList(), f));
    row->addWidget(textBox("TxtRepeat", f));
    row->addWidget(label("LblRepeat", "Times", f));
    row->addStretch(1);
    return f;
}

QGroupBox* FrmKdxToolAutoReverse::buildCode() {
    auto* f = new QGroupBox("KDX Code", this);
    f->setObjectName("FrameKdxCode");
    auto* grid = new QGridLayout(f);
    int row = 0;
    for (const auto& s : SectionFields) {
        auto* box = new QPlainTextEdit(f);
        box->setObjectName(s.box);
        box->setReadOnly(true); // it only shows the code
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
        box->setFont(QFont("Monospace", 9));
        grid->addWidget(label(s.label, s.caption, f), row, 0, Qt::AlignTop);
        grid->addWidget(box, row, 1);
        // The start and the return hold the most lines.
        const bool longest = s.section == &AutoReverseSections::TxtHomeType ||
                             s.section == &AutoReverseSections::TxtReturnType;
        grid->setRowStretch(row, s.section == &AutoReverseSections::TxtOnline ? 0
                                 : longest                                    ? 2
                                                                              : 1);
        ++row;
    }
    f->findChild<QPlainTextEdit*>("TxtOnline")->setMaximumHeight(40);
    return f;
}

void FrmKdxToolAutoReverse::connectControls() {
    for (const auto& c : ComboFields) {
        auto* box = findChild<QComboBox*>(c.name);
        connect(box, &QComboBox::currentIndexChanged, this, [this, click = c.click](int index) {
            choose([this, click, index] { click(gen_, index); });
        });
    }
    for (const auto& t : TextFields) {
        auto* box = findChild<QLineEdit*>(t.name);
        if (t.box == AutoReverseBox::TxtHomePause) {
            box->installEventFilter(this); // on leaving only, not on Enter
            continue;
        }
        connect(box, &QLineEdit::editingFinished, this, [this, which = t.box, field = t.field] {
            choose([this, which, field] { gen_.EnterText(which, gen_.settings.*field); });
        });
    }
    connect(views_, &QTabWidget::currentChanged, this, [this](int index) {
        if (views_->widget(index) == preview_) {
            preview_->Refresh();
        }
    });
}

// ---- the controls and the settings ----------------------------------------------------------

void FrmKdxToolAutoReverse::choose(const std::function<void()>& act) {
    readControls();
    act();
    writeControls();
}

void FrmKdxToolAutoReverse::readControls() {
    auto& s = gen_.settings;
    for (const auto& t : TextFields) {
        s.*t.field = Latin1(findChild<QLineEdit*>(t.name)->text());
    }
    for (const auto& c : ComboFields) {
        c.set(s, findChild<QComboBox*>(c.name)->currentIndex());
    }
    for (int m = 1; m <= 4; ++m) {
        if (motors_[static_cast<std::size_t>(m - 1)]->isChecked()) {
            s.CurrentMotor = m;
        }
    }
}

void FrmKdxToolAutoReverse::writeControls() {
    const auto& s = gen_.settings;
    for (const auto& t : TextFields) {
        setTextQuietly(findChild<QLineEdit*>(t.name), s.*t.field);
    }
    for (const auto& c : ComboFields) {
        auto* box = findChild<QComboBox*>(c.name);
        const QSignalBlocker quiet(box);
        box->setCurrentIndex(c.get(s));
    }
    for (int m = 1; m <= 4; ++m) {
        auto* option = motors_[static_cast<std::size_t>(m - 1)];
        const QSignalBlocker quiet(option);
        option->setChecked(s.CurrentMotor == m);
    }
    for (const auto& f : SectionFields) {
        auto shown = Latin1(gen_.sections.*f.section);
        shown.replace("\r\n", "\n");
        auto* box = findChild<QPlainTextEdit*>(f.box);
        if (box->toPlainText() != shown) {
            box->setPlainText(shown);
        }
    }
    layOut();
}

void FrmKdxToolAutoReverse::layOut() {
    const auto l = LayoutFor(gen_.settings);
    const auto show = [this](std::initializer_list<const char*> names, bool on) {
        for (const auto* name : names) {
            findChild<QWidget*>(name)->setVisible(on);
        }
    };
    findChild<QLineEdit*>("TxtHomePosition")->setEnabled(l.homePositionEnabled);
    show({"CmdJogHomeNegative", "CmdJogHomePositive"}, l.homeJogShown);
    show({"LblHomePosition", "CmbHomeInstance", "LblHomeSpeed", "TxtHomeSpeed",
          "CmbVelocityStyleHome"},
         l.homeLimitControlsShown);
    findChild<QLineEdit*>("TxtMovePosition")->setEnabled(l.movePositionEnabled);
    show({"TxtMovePosition", "LblMovePosition"}, l.movePositionShown);
    show({"CmdJogMoveNegative", "CmdJogMovePositive"}, l.moveJogShown);
    show({"TxtHomePause", "LblHomePause"}, l.homePauseShown);
    show({"TxtReturnPause", "LblReturnPause"}, l.returnPauseShown);
    show({"LblMoveToStart"}, l.moveToStartShown);
    show({"TxtRepeat", "LblRepeat"}, l.repeatShown);
}

void FrmKdxToolAutoReverse::FormatPositions() {
    choose([this] {
        auto& s = gen_.settings;
        s.TxtHomePosition = AutoReverseGenerator::FormatPosition(s.TxtHomePosition);
        s.TxtMovePosition = AutoReverseGenerator::FormatPosition(s.TxtMovePosition);
    });
}

// ---- events -----------------------------------------------------------------------------------

void FrmKdxToolAutoReverse::showEvent(QShowEvent* event) {
    FormBase::showEvent(event);
    // Motors 2 to 4 are there to choose when their set-up is.
    if (auto* mdi = App().mdi) {
        for (int m = 2; m <= 4; ++m) {
            const auto* entry = mdi->Menu(QString("MnuToolsSetUpAxis%1").arg(m));
            motors_[static_cast<std::size_t>(m - 1)]->setEnabled(entry != nullptr &&
                                                                 entry->isEnabled());
        }
    }
}

bool FrmKdxToolAutoReverse::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && qobject_cast<QComboBox*>(watched) != nullptr) {
        // A combo takes the arrows only: typing never picks an entry.
        return !isArrow(static_cast<QKeyEvent*>(event)->key());
    }
    if (event->type() == QEvent::FocusOut && watched->objectName() == "TxtHomePause") {
        choose(
            [this] { gen_.EnterText(AutoReverseBox::TxtHomePause, gen_.settings.TxtHomePause); });
    }
    return FormBase::eventFilter(watched, event);
}

// ---- the three buttons --------------------------------------------------------------------------

void FrmKdxToolAutoReverse::pressButton(PictureButton* button,
                                        void (FrmKdxToolAutoReverse::*action)()) {
    button->showDown();
    for (auto* b : buttons_) {
        b->hide();
    }
    App().delay.TimeDelay(0.25);
    button->showUp();
    (this->*action)();
    for (auto* b : buttons_) {
        b->show();
    }
}

void FrmKdxToolAutoReverse::PicTestScript_MouseDown() {
    pressButton(buttons_[0], &FrmKdxToolAutoReverse::TestCode);
}

void FrmKdxToolAutoReverse::PicSaveToKdx_MouseDown() {
    pressButton(buttons_[1], &FrmKdxToolAutoReverse::SaveToKdx);
}

void FrmKdxToolAutoReverse::PicSaveToFileButton_MouseDown() {
    pressButton(buttons_[2], &FrmKdxToolAutoReverse::SaveToFile);
}

// The frames look switched off while an action runs.
void FrmKdxToolAutoReverse::switchFramesOff(bool off) {
    for (auto* frame : frames_) {
        for (auto* control : frame->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (off) {
                auto faced = control->palette();
                faced.setColor(QPalette::Base, faced.color(QPalette::Button));
                control->setPalette(faced);
            } else {
                control->setPalette(QPalette());
            }
        }
    }
}

void FrmKdxToolAutoReverse::TestCode() {
    act(RunSaveAction::Test);
}

void FrmKdxToolAutoReverse::SaveToKdx() {
    act(RunSaveAction::Store);
}

void FrmKdxToolAutoReverse::SaveToFile() {
    act(RunSaveAction::File);
}

void FrmKdxToolAutoReverse::act(RunSaveAction action) {
    switchFramesOff(true);
    std::string text;
    choose([this, action, &text] { text = gen_.Generate(action); });
    if (action == RunSaveAction::File) {
        SaveAutoReverseScript(App().prompts, App().folders.application, text);
    } else {
        HourGlass busy;
        SendAutoReverseProgram(kdx_, action, text);
    }
    switchFramesOff(false);
}

void FrmKdxToolAutoReverse::ShowPreview() {
    if (views_->currentWidget() == preview_) {
        preview_->Refresh();
    } else {
        views_->setCurrentWidget(preview_); // runs it
    }
}

} // namespace korval
