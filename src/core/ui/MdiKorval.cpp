#include "MdiKorval.h"

#include "CentreOnScreen.h"
#include "FocusKeeper.h"
#include "FrmKdxToolSplash.h"
#include "KorvalServices.h"
#include "core/qt/Latin1.h"

#include "core/MainWindowRules.h"
#include "core/MenuTree.h"
#include "core/WindowPlacement.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStyle>
#include <QVBoxLayout>

namespace korval {

namespace {

struct ToolButton {
    const char* name;
    Symbol symbol;
    const char* tip;
    const char* menu; // the menu entry it stands for; "" for the panel's own buttons
};

const ToolButton ToolBarButtons[] = {
    {"PicQuickMoveSingle", Symbol::QuickMoveSingle, "Single Axis QuickMove",
     "MnuToolsQuickMoveSingle"},
    {"PicQuickMoveMulti", Symbol::QuickMoveMulti, "Simultaneous Axis QuickMove",
     "MnuToolsQuickMoveSimultaneous"},
    {"PicAutoReverse", Symbol::AutoReverse, "Auto-Reverse QuickMove", "MnuToolsAutoReverse"},
    {"PicVirtualJog", Symbol::VirtualJog, "Virtual Jog", "MnuToolsVirtualJog"},
    {"PicTerminal", Symbol::Terminal, "KDX Terminal", "MnuToolsTerminal"},
};

const ToolButton PanelButtons[] = {
    {"PicStatusButton", Symbol::Status, "Get Current Status of KDX", ""},
    {"PicOnlineButton", Symbol::Online, "KDX On-Line", ""},
    {"PicLocalButton", Symbol::Local, "KDX Off-Line (Local Mode)", ""},
    {"PicStopButton", Symbol::Stop, "Stop KDX Program", ""},
    {"PicRunButton", Symbol::Run, "Run Current KDX Program", ""},
};

} // namespace

MdiKorval::MdiKorval() : FormBase("MdiKorval", "KORVAL") {
    // Every window, the tool windows' frames and the message boxes take the program's icon.
    QApplication::setWindowIcon(QIcon(":/korval/korval.svg"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* bar = new QMenuBar(this);
    layout->setMenuBar(bar);
    buildMenus();
    for (auto* menu : findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (menu->menuAction()->property("topLevel").toBool()) {
            bar->addMenu(menu);
        }
    }
    layout->addWidget(buildToolBar());
    area_ = new QMdiArea(this);
    area_->setObjectName("MdiArea");
    area_->setBackground(QColor(160, 160, 168));
    layout->addWidget(area_, 1);
    layout->addWidget(buildStatusBar());
    resize(1100, 760);

    auto& app = App();
    display_ = std::make_unique<StatusDisplay>(
        *this, app.delay, [&app] { app.kdx.KillProgram(); }, [&app] { app.kdx.VerifyStatus(); });
    subscriptions_[0] = app.kdx.PortChanged.subscribe(
        [this](const std::string& p, const std::string& b) { PortChanged(p, b); });
    subscriptions_[1] =
        app.kdx.PortOpenOrClosed.subscribe([this](const std::string& s) { PortOpenOrClosed(s); });
    subscriptions_[2] =
        app.kdx.KdxChanged.subscribe([this](const std::string& w) { KdxChanged(w); });
    disableUntilWired();
    connectPanelButtons();
    auto* windowMenu = actions_.value("MnuWindow")->menu();
    connect(windowMenu, &QMenu::aboutToShow, this,
            [this, windowMenu] { listOpenWindows(windowMenu); });
    CentreOnScreen(*this);
}

MdiKorval::~MdiKorval() {
    ReleaseKdxStatus();
}

void MdiKorval::ReleaseKdxStatus() {
    auto& kdx = App().kdx;
    kdx.PortChanged.unsubscribe(subscriptions_[0]);
    kdx.PortOpenOrClosed.unsubscribe(subscriptions_[1]);
    kdx.KdxChanged.unsubscribe(subscriptions_[2]);
    subscriptions_[0] = subscriptions_[1] = subscriptions_[2] = 0;
}

void MdiKorval::buildMenus() {
    QHash<QString, QMenu*> menus;
    const auto& tree = MenuTree();
    const auto hasChildren = [&tree](std::string_view name) {
        return std::any_of(tree.begin(), tree.end(),
                           [&](const MenuEntry& e) { return e.parent == name; });
    };
    for (const auto& e : tree) {
        const auto name = Latin1(e.name);
        const auto caption = Latin1(e.caption);
        const auto parentName = Latin1(e.parent);
        QMenu* parent = menus.value(parentName);
        QAction* action = nullptr;
        if (hasChildren(e.name)) {
            auto* menu = new QMenu(caption, this);
            menus.insert(name, menu);
            action = menu->menuAction();
            action->setProperty("topLevel", e.parent.empty());
            if (parent != nullptr) {
                parent->addMenu(menu);
            }
        } else if (caption == "-") {
            action = parent->addSeparator();
        } else {
            action = new QAction(caption, this);
            parent->addAction(action);
            connect(action, &QAction::triggered, this, [this, name] {
                if (const auto handler = handlers_.value(name)) {
                    handler();
                }
            });
        }
        action->setObjectName(name);
        actions_.insert(name, action);
    }
}

QWidget* MdiKorval::buildToolBar() {
    toolBar_ = new QWidget(this);
    toolBar_->setObjectName("PicToolBar");
    auto* row = new QHBoxLayout(toolBar_);
    row->setContentsMargins(4, 3, 4, 3);
    for (const auto& b : ToolBarButtons) {
        auto* button = new PictureButton(b.name, b.symbol, toolBar_);
        button->setToolTip(b.tip);
        const QString menu = b.menu;
        connect(button, &PictureButton::pressed, this, [this, button, menu] {
            button->showDown();
            App().delay.TimeDelay(0.25);
            if (const auto handler = handlers_.value(menu)) {
                handler();
            }
        });
        row->addWidget(button);
    }
    row->addStretch(1);
    return toolBar_;
}

QWidget* MdiKorval::buildStatusBar() {
    auto* bar = new QWidget(this);
    bar->setObjectName("PicStatus");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 2, 4, 4);
    auto* detect = new PictureButton("PicAutoDetect", Symbol::AutoDetect, bar);
    detect->setToolTip("AutoDetect KDX");
    row->addWidget(detect);

    auto* frameKdx = new QGroupBox(bar);
    frameKdx->setObjectName("FrameKdx");
    auto* buttons = new QHBoxLayout(frameKdx);
    buttons->setContentsMargins(4, 4, 4, 4);
    for (const auto& b : PanelButtons) {
        auto* button = new PictureButton(b.name, b.symbol, frameKdx);
        button->setToolTip(b.tip);
        buttons->addWidget(button);
    }
    row->addWidget(frameKdx);

    auto* frameStatus = new QGroupBox("KDX Status", bar);
    frameStatus->setObjectName("FrameKdxStatus");
    auto* status = new QHBoxLayout(frameStatus);
    power_ = new Lamp("PicKdxPower", QColor(40, 200, 60), frameStatus);
    online_ = new Lamp("PicKdxOnline", QColor(245, 210, 30), frameStatus);
    lblStatusKdx_ = new QLabel("Verifying Status", frameStatus);
    lblStatusKdx_->setObjectName("LblStatusKdx");
    lblStatusKdx_->setMinimumWidth(190);
    QFont bold = lblStatusKdx_->font();
    bold.setBold(true);
    lblStatusKdx_->setFont(bold);
    lblStatusPort_ = new QLabel("Port Status: Closed", frameStatus);
    lblStatusPort_->setObjectName("LblStatusPort");
    lblPortCurrent_ = new QLabel("Port: Com255, Baud: 38400", frameStatus);
    lblPortCurrent_->setObjectName("LblPortCurrent");
    status->addWidget(power_);
    status->addWidget(online_);
    status->addWidget(lblStatusKdx_);
    status->addSpacing(12);
    status->addWidget(lblStatusPort_);
    status->addSpacing(12);
    status->addWidget(lblPortCurrent_);
    status->addSpacing(12);
    lblNote_ = new QLabel(frameStatus);
    lblNote_->setObjectName("LblStatusNote");
    // A long device path is cut rather than widening the window; its tool tip has it whole.
    lblNote_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    status->addWidget(lblNote_, 1);
    row->addWidget(frameStatus, 1);
    return bar;
}

PictureButton* MdiKorval::Button(const QString& name) const {
    return findChild<PictureButton*>(name);
}

void MdiKorval::Adopt(FormBase& form) {
    auto* frame = area_->addSubWindow(&form);
    frame->setWindowTitle(form.windowTitle());
    frame->setAttribute(Qt::WA_DeleteOnClose, false);
    form.SetSubWindow(frame);
    frame->installEventFilter(&form);
    frame->installEventFilter(this); // where it opens
    frame->hide();
}

bool MdiKorval::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        if (auto* frame = qobject_cast<QMdiSubWindow*>(watched);
            frame && frame->mdiArea() == area_) {
            placeOnOpen(frame);
        }
    }
    return FormBase::eventFilter(watched, event);
}

void MdiKorval::placeOnOpen(QWidget* frame) {
    std::vector<WindowSpot> open;
    for (auto* other : area_->subWindowList()) {
        if (other != frame && other->isVisible() && !other->isMinimized()) {
            open.push_back({other->x(), other->y()});
        }
    }
    const WindowSpot room{area_->viewport()->width() - frame->width(),
                          area_->viewport()->height() - frame->height()};
    const int step = frame->style()->pixelMetric(QStyle::PM_TitleBarHeight) + 6;
    const auto spot = OpenSpot({frame->x(), frame->y()}, open, room, step);
    frame->move(spot.x, spot.y);
}

void MdiKorval::listOpenWindows(QMenu* menu) {
    qDeleteAll(windowEntries_);
    windowEntries_.clear();
    for (auto* frame : area_->subWindowList()) {
        if (!frame->isVisible()) {
            continue;
        }
        auto* entry = new QAction(frame->windowTitle(), menu);
        entry->setObjectName("WindowListEntry"); // not a menu of the settings file
        entry->setCheckable(true);
        entry->setChecked(frame == area_->activeSubWindow());
        connect(entry, &QAction::triggered, this, [this, frame] {
            frame->showNormal();
            area_->setActiveSubWindow(frame);
        });
        menu->addAction(entry);
        windowEntries_.append(entry);
    }
}

void MdiKorval::SetNote(const QString& text) {
    lblNote_->setText(text);
    lblNote_->setToolTip(text);
    lblNote_->repaint();
}

void MdiKorval::SetHandler(const QString& menu, std::function<void()> handler) {
    handlers_.insert(menu, std::move(handler));
    if (auto* action = actions_.value(menu)) {
        action->setEnabled(true);
    }
    for (const auto& b : ToolBarButtons) {
        if (menu == b.menu) {
            Button(b.name)->setEnabled(true);
        }
    }
}

void MdiKorval::disableUntilWired() {
    // Every leaf starts disabled; each room switches on the entries whose windows it has.
    for (const auto& e : MenuTree()) {
        auto* action = actions_.value(Latin1(e.name));
        if (action != nullptr && action->menu() == nullptr && !action->isSeparator()) {
            action->setEnabled(false);
        }
    }
    for (const auto& b : ToolBarButtons) {
        Button(b.name)->setEnabled(false);
    }
}

void MdiKorval::connectPanelButtons() {
    const std::pair<const char*, void (MdiKorval::*)()> panel[] = {
        {"PicRunButton", &MdiKorval::PicRunButton_MouseDown},
        {"PicStopButton", &MdiKorval::PicStopButton_MouseDown},
        {"PicStatusButton", &MdiKorval::PicStatusButton_MouseDown},
        {"PicOnlineButton", &MdiKorval::PicOnlineButton_MouseDown},
        {"PicLocalButton", &MdiKorval::PicLocalButton_MouseDown},
    };
    for (const auto& [name, handler] : panel) {
        connect(Button(name), &PictureButton::pressed, this, [this, h = handler] { (this->*h)(); });
    }
}

std::string MdiKorval::Caption() const {
    return Latin1(lblStatusKdx_->text());
}

void MdiKorval::SetCaption(const std::string& text) {
    lblStatusKdx_->setText(Latin1(text));
    lblStatusKdx_->repaint();
}

void MdiKorval::SetLamps(bool powerLit, bool onlineLit) {
    power_->setLit(powerLit);
    online_->setLit(onlineLit);
    power_->repaint();
    online_->repaint();
}

void MdiKorval::PortChanged(const std::string& port, const std::string& baud) {
    lblPortCurrent_->setText(Latin1(PortCurrentText(port, baud)));
    lblPortCurrent_->repaint();
}

void MdiKorval::PortOpenOrClosed(const std::string& state) {
    QPalette palette = lblStatusPort_->palette();
    palette.setColor(QPalette::WindowText, state == "Closed" ? QColor(255, 0, 0) : QColor(0, 0, 0));
    lblStatusPort_->setPalette(palette);
    lblStatusPort_->setText(Latin1("Port Status: " + state));
    lblStatusPort_->repaint();
}

void MdiKorval::KdxChanged(const std::string& word) {
    FocusKeeper focus;
    if (App().splash != nullptr && App().splash->isVisible()) {
        return; // start-up's own status queries must not change the panel too early
    }
    if (!word.empty()) {
        display_->OnKdxChanged(word);
    }
}

void MdiKorval::PicRunButton_MouseDown() {
    auto& app = App();
    app.runFlag = true;
    auto* button = Button("PicRunButton");
    button->showDown();
    if (ProgramIsEmpty(app.kdx.GetProgramMemory())) {
        app.prompts.Message(EmptyProgramMessage(app.kdx.GetProgramNumber()),
                            "Error: Running Program", Prompts::Icon::Critical,
                            Prompts::Buttons::Ok);
    } else {
        app.kdx.RunKdxProgram();
    }
    button->showUp();
    app.runFlag = false; // the terminal reads again once the run has been handed over
}

void MdiKorval::PicStopButton_MouseDown() {
    auto& app = App();
    app.stopFlag = true;
    Button("PicStopButton")->showDown();
    app.kdx.StopProgram();
    app.kdx.EscapeDriverFunctionTrue();
    app.delay.TimeDelay(0.25);
    app.kdx.EscapeDriverFunctionFalse();
    Stopped.raise(); // the tools that show positions read them afresh
    app.stopFlag = false;
}

void MdiKorval::PicStatusButton_MouseDown() {
    auto& app = App();
    Button("PicStatusButton")->showDown();
    SetLamps(false, false);
    SetCaption("Verifying Status");
    app.delay.TimeDelay(0.25);
    if (app.statusReport != nullptr) {
        app.statusReport->setText("");
    }
    app.kdx.VerifyStatus();
}

void MdiKorval::PicOnlineButton_MouseDown() {
    Button("PicOnlineButton")->showDown();
    App().kdx.BringOnline();
}

void MdiKorval::PicLocalButton_MouseDown() {
    Button("PicLocalButton")->showDown();
    App().kdx.BringOffline();
}

void MdiKorval::FontSize(int points) {
    for (auto* form : App().forms) {
        if (form == this || !form->objectName().startsWith("FrmKdxTool")) {
            continue;
        }
        for (auto* box : form->findChildren<QWidget*>(QRegularExpression("^Txt"))) {
            QFont font = box->font();
            font.setPointSize(points);
            box->setFont(font);
        }
    }
}

void MdiKorval::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    closing_ = true;
    event->ignore(); // shutdown takes the windows down itself, in its own order
    QMetaObject::invokeMethod(
        qApp,
        [this] {
            if (onClose_) {
                onClose_();
            }
        },
        Qt::QueuedConnection);
}

} // namespace korval
