#include "KorvalApp.h"

#include "FormBase.h"
#include "FrmDriverDebug.h"
#include "FrmKdxAdmin.h"
#include "FrmKdxToolSplash.h"
#include "MdiKorval.h"

#include "core/ClsFileFolder.h"
#include "link/ui/FrmKdxDriverCallback.h"
#include "link/ui/FrmKdxToolDetect.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "scripts/ui/ScriptMenus.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace korval {

namespace {

KorvalApp* instance = nullptr;

const char* const AxisMenus[] = {"MnuToolsSetUpAxis1",         "MnuToolsSetUpAxis2",
                                 "MnuToolsSetUpAxis3",         "MnuToolsSetUpAxis4",
                                 "MnuToolsSetUpAttachedAxis1", "MnuToolsSetUpAttachedAxis2",
                                 "MnuToolsSetUpAttachedAxis3", "MnuToolsSetUpAttachedAxis4"};

bool writableFolder(const std::string& folder) {
    return std::filesystem::is_directory(folder) && ::access(folder.c_str(), W_OK) == 0;
}

} // namespace

KorvalApp& App() {
    return *instance;
}

ProgramFolders FoldersFor(const std::string& programFolder) {
    ProgramFolders f;
    f.application = ClsFileFolder::FormatPath(programFolder);
    f.driver = ClsFileFolder::FormatPath(f.application + "Driver");
    f.config = ClsFileFolder::FormatPath(f.application + "Config");
    f.documentation = ClsFileFolder::FormatPath(f.application + "Documentation");
    if (!writableFolder(f.config) &&
        !(::access(f.application.c_str(), W_OK) == 0 && ClsFileFolder::MakeFolder(f.config))) {
        // An installed program's folder is not the user's to write: settings go home.
        const char* xdg = std::getenv("XDG_CONFIG_HOME");
        const char* home = std::getenv("HOME");
        const std::string base = xdg != nullptr && *xdg != '\0'
                                     ? xdg
                                     : std::string(home != nullptr ? home : "/tmp") + "/.config";
        f.config = ClsFileFolder::FormatPath(base + "/korval");
        ClsFileFolder::MakeFolder(f.config);
    }
    f.settingsFile = f.config + "KORVAL Settings.ini";
    return f;
}

KorvalApp::KorvalApp(Prompts& p, ProgramFolders f) : prompts(p), folders(std::move(f)) {
    instance = this;
    mailbox.setWake([this] {
        QMetaObject::invokeMethod(
            qApp, [this] { mailbox.drain(); }, Qt::QueuedConnection);
    });
}

KorvalApp::~KorvalApp() {
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        delete *it;
    }
    forms.clear();
    delete splash;
    mailbox.setWake({});
    instance = nullptr;
}

FormBase* KorvalApp::Form(std::string_view name) const {
    for (auto* form : forms) {
        if (form->Name() == name || form->GetVirtualName() == name) {
            return form;
        }
    }
    return nullptr;
}

bool KorvalApp::IsVisible(std::string_view name) const {
    const auto* form = Form(name);
    return form != nullptr && form->IsShown();
}

void KorvalApp::splashStatus(const std::string& text) {
    splash->SetStatus(QString::fromStdString(text));
}

bool KorvalApp::Main() {
    stopFlag = false;
    runFlag = false;
    splash = new FrmKdxToolSplash();
    splash->MakeTopMost(true);
    splash->show();
    splash->repaint();

    const bool loaded = LoadLibraries(
        DriverStage([this](const std::string& path) { return kdx.LoadDriver(path); }),
        CommandsStage([this](const std::string& path) { return commands.LoadDll(path); }), folders,
        prompts);
    if (!loaded) {
        ended_ = true;
        splash->hide();
        return false;
    }
    LoadForms();
    for (auto* form : forms) {
        classIniFile.ReadIniWithoutForm(form->Walked(), folders.settingsFile);
    }
    for (auto* form : forms) {
        classIniFile.ReadForm(form->Walked(), folders.settingsFile);
    }

    mdi->show();
    mdi->setEnabled(true);
    if (iniFile.CheckFirstRun(folders.settingsFile)) {
        kdx.BringOnline();
        splash->MakeTopMost(false);
        splash->hide();
    }
    for (const char* name : AxisMenus) {
        const auto value = iniFile.ProfileGetItem(mdi->Name(), std::string(name) + ".Enabled", "",
                                                  folders.settingsFile);
        // Only the entries whose windows exist can be switched on.
        if (!value.empty() && mdi->HasHandler(name)) {
            mdi->Menu(name)->setEnabled(BooleanFromText(value));
        }
    }
    setPort->ChkPortOpen()->setChecked(true);
    setPort->ChkPortOpen_Click(); // opens the restored port if it is not open yet
    delay.TimeDelay(0.1);
    splash->SetStatus("");
    splash->MakeTopMost(false);
    splash->hide();
    kdx.BringOnline();
    return true;
}

void KorvalApp::LoadForms() {
    mdi = new MdiKorval();
    mdi->setEnabled(false);
    forms.push_back(mdi);
    splashStatus("Status: KORVAL Loaded");
    splashStatus("Status: Common Components Loaded"); // the pictures are drawn, ready at once
    msgBox = new FrmMsgBox();
    forms.push_back(msgBox);
    splashStatus("Status: Messages Loaded");
    callback = new FrmKdxDriverCallback();
    forms.push_back(callback);
    debug = new FrmDriverDebug();
    mdi->Adopt(*debug);
    forms.push_back(debug);
    detect = new FrmKdxToolDetect();
    mdi->Adopt(*detect);
    forms.push_back(detect);
    splashStatus("Status: Auto-Detect Loaded");
    setPort = new FrmKdxToolSetPort();
    mdi->ToolBar()->layout()->addWidget(setPort); // lives in the tool bar, right of the tools
    forms.push_back(setPort);
    auto* terminal = new FrmKdxToolTerminal();
    mdi->Adopt(*terminal);
    forms.push_back(terminal);
    splashStatus("Status: Terminal Loaded");
    auto* editor = new FrmKdxToolScriptEditor();
    mdi->Adopt(*editor);
    forms.push_back(editor);
    splashStatus("Status: Script Editor Loaded");
    WireScriptMenus(*mdi);
    kdx.BringOnline(); // so that information windows read a live controller
    admin = new FrmKdxAdmin();
    mdi->Adopt(*admin);
    forms.push_back(admin);
    splashStatus("Status: Administrative Tools Loaded");
    recovery = new FrmKdxDriverRecovery();
    mdi->Adopt(*recovery);
    forms.push_back(recovery);
    splashStatus("Status: Administrative Driver Tools Loaded");
    splashStatus("");
}

void KorvalApp::UnloadForms() {
    splash->SetStatus("");
    splash->show();
    callback->Clear(); // nothing transient is saved
    classIniFile.BeginBatch();
    for (auto* form : forms) {
        classIniFile.WriteIni(form->Walked(), folders.settingsFile);
        splashStatus("Status: " + form->Name() + " Unloaded");
    }
    classIniFile.EndBatch(); // the settings are written before any window goes
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        if (*it != mdi) {
            delete *it;
        }
    }
    forms.assign(1, mdi);
    callback = nullptr;
    detect = nullptr;
    setPort = nullptr;
    admin = nullptr;
    recovery = nullptr;
    debug = nullptr;
    msgBox = nullptr;
    do {
        kdx.EscapeDriverFunctionTrue();
        delay.TimeDelay(0.1);
    } while (kdx.AreDriverFunctionsEnabled());
    kdx.BringOffline();
    kdx.PortClose();
    kdx.UnLoadDriver();
    splash->hide();
}

void KorvalApp::Shutdown() {
    if (ended_) {
        return;
    }
    ended_ = true;
    commands.UnLoadDll();
    kdx.ClosePortReceiveThread();
    stopFlag = false;
    runFlag = false;
    kdx.DebugWindowHide();
    UnloadForms();
    kdx.EscapeDriverFunctionTrue();
    kdx.UnLoadDriver();
    forms.clear();
    mdi->hide();
    mdi->deleteLater();
    mdi = nullptr;
    QApplication::quit();
}

} // namespace korval
