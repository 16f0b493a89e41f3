#include "KorvalStartup.h"

#include "axis/ui/FrmKdxToolWizardSetup.h"
#include "core/AtomicFile.h"
#include "core/ClsClassIniFile.h"
#include "core/ui/FrmKdxToolSplash.h"
#include "core/ui/MdiKorval.h"
#include "link/LoadLibraries.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "motion/ui/FrmKdxToolQuickMoveMulti.h"
#include "motion/ui/FrmKdxToolQuickMoveSingle.h"

#include <QAction>
#include <QApplication>
#include <QLayout>

namespace korval {

namespace {

// The only menus whose enabled state survives a restart: they follow the axis count.
const char* const AxisMenus[] = {"MnuToolsSetUpAxis1",         "MnuToolsSetUpAxis2",
                                 "MnuToolsSetUpAxis3",         "MnuToolsSetUpAxis4",
                                 "MnuToolsSetUpAttachedAxis1", "MnuToolsSetUpAttachedAxis2",
                                 "MnuToolsSetUpAttachedAxis3", "MnuToolsSetUpAttachedAxis4"};

} // namespace

KorvalStartup::KorvalStartup(Prompts& prompts, ProgramFolders folders)
    : services_(prompts, std::move(folders)) {}

KorvalStartup::~KorvalStartup() {
    auto& forms = services_.forms;
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        delete *it;
    }
    forms.clear();
    delete services_.splash;
}

void KorvalStartup::splashStatus(const std::string& text) {
    services_.splash->SetStatus(QString::fromStdString(text));
}

bool KorvalStartup::Main() {
    auto& app = services_;
    app.stopFlag = false;
    app.runFlag = false;
    app.splash = new FrmKdxToolSplash();
    app.splash->MakeTopMost(true);
    app.splash->show();
    app.splash->repaint();

    const bool loaded = LoadLibraries(
        DriverStage([&app](const std::string& path) { return app.kdx.LoadDriver(path); }),
        CommandsStage([&app](const std::string& path) { return app.commands.LoadDll(path); }),
        app.folders, app.prompts);
    if (!loaded) {
        Shutdown();
        return false;
    }
    RemoveLeftoverTemporaries(app.folders.settingsFile); // of a save that was killed
    LoadForms();
    for (auto* form : app.forms) {
        app.classIniFile.ReadIniWithoutForm(form->Walked(), app.folders.settingsFile);
    }
    for (auto* form : app.forms) {
        app.classIniFile.ReadForm(form->Walked(), app.folders.settingsFile);
    }
    // The QuickMove windows derive their displays from the restored advance per step.
    app.Form<FrmKdxToolQuickMoveSingle>("FrmKdxToolQuickMoveSingle")->RunAdvStepHandlers();
    app.Form<FrmKdxToolQuickMoveMulti>("FrmKdxToolQuickMoveMulti")->RunAdvStepHandlers();

    auto* mdi = app.mdi;
    mdi->show();
    mdi->setEnabled(true);
    auto* wizard = app.Form<FrmKdxToolWizardSetup>("FrmKdxToolWizardSetup");
    auto* setPort = app.Form<FrmKdxToolSetPort>("FrmKdxToolSetPort");
    if (app.iniFile.CheckFirstRun(app.folders.settingsFile)) {
        app.kdx.BringOnline();
        app.splash->MakeTopMost(false);
        app.splash->hide();
        wizard->RunWizard(); // it finds the controller itself
    } else {
        setPort->OpenRestoredPort(); // the motor count is the controller's to tell
        wizard->Wizard().DetectPossibleNumOfMotors();
    }
    for (const char* name : AxisMenus) {
        const auto value = app.iniFile.ProfileGetItem(mdi->Name(), std::string(name) + ".Enabled",
                                                      "", app.folders.settingsFile);
        // Only the entries whose windows exist can be switched on.
        if (!value.empty() && mdi->HasHandler(name)) {
            mdi->Menu(name)->setEnabled(BooleanFromText(value));
        }
    }
    setPort->OpenRestoredPort();
    app.delay.TimeDelay(0.1);
    app.splash->SetStatus("");
    app.splash->MakeTopMost(false);
    app.splash->hide();
    app.kdx.BringOnline();
    tellSettingsProblem();
    return true;
}

void KorvalStartup::tellSettingsProblem() {
    auto& app = services_;
    for (ClsIniFile* store : std::initializer_list<ClsIniFile*>{&app.iniFile, &app.classIniFile}) {
        if (const auto problem = store->TakeProblem(); !problem.empty()) {
            app.prompts.Message(problem, "KORVAL Settings", Prompts::Icon::Warning,
                                Prompts::Buttons::Ok);
        }
    }
}

void KorvalStartup::LoadForms() {
    for (const auto& row : FormRegistry()) {
        if (row.load) {
            if (auto* form = row.load()) {
                place(*form, row.placement);
            }
        }
        if (*row.status != '\0') {
            splashStatus(row.status);
        }
    }
    splashStatus("");
    for (const auto wire : MenuWirings()) {
        wire(*services_.mdi);
    }
}

void KorvalStartup::place(FormBase& form, Placement placement) {
    auto& app = services_;
    app.forms.push_back(&form);
    switch (placement) {
    case Placement::Frame:
        app.mdi = static_cast<MdiKorval*>(&form);
        app.mdi->setEnabled(false); // kept invisible and disabled until start-up shows it
        app.mdi->SetOnClose([this] { Shutdown(); });
        break;
    case Placement::Tool:
        app.mdi->Adopt(form);
        break;
    case Placement::ToolBar:
        app.mdi->ToolBar()->layout()->addWidget(&form); // right of the tools
        break;
    case Placement::Hidden:
        break;
    }
}

void KorvalStartup::UnloadForms() {
    auto& app = services_;
    app.splash->SetStatus("");
    app.splash->show();
    for (auto* form : app.forms) {
        form->PrepareForSave();
    }
    app.classIniFile.BeginBatch();
    for (auto* form : app.forms) {
        app.classIniFile.WriteIni(form->Walked(), app.folders.settingsFile);
        splashStatus("Status: " + form->Name() + " Unloaded");
    }
    app.classIniFile.EndBatch(); // the settings are written before any window goes
    tellSettingsProblem();
    auto& forms = app.forms;
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        if (*it != app.mdi) {
            delete *it;
        }
    }
    forms.assign(1, app.mdi);
    do {
        app.kdx.EscapeDriverFunctionTrue();
        app.delay.TimeDelay(0.1);
    } while (app.kdx.AreDriverFunctionsEnabled());
    app.kdx.BringOffline();
    app.kdx.PortClose();
    app.kdx.UnLoadDriver();
    app.splash->hide();
}

void KorvalStartup::Shutdown() {
    if (ended_) {
        return;
    }
    ended_ = true;
    auto& app = services_;
    if (app.mdi != nullptr) {
        app.mdi->ReleaseKdxStatus();
    }
    app.commands.UnLoadDll();
    app.kdx.ClosePortReceiveThread();
    app.stopFlag = false;
    app.runFlag = false;
    app.kdx.DebugWindowHide();
    if (app.mdi != nullptr) {
        UnloadForms();
    }
    app.kdx.EscapeDriverFunctionTrue();
    app.kdx.UnLoadDriver();
    app.forms.clear();
    if (app.mdi != nullptr) {
        app.mdi->hide();
        app.mdi->deleteLater();
        app.mdi = nullptr;
    }
    app.splash->hide();
    QApplication::quit();
}

} // namespace korval
