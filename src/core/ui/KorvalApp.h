#pragma once
// The program's global services and windows, created once by Main and released at the end.
// Windows reach each other and the services through the one instance, App().
#include "core/ClsClassIniFile.h"
#include "core/ClsIniFile.h"
#include "core/Prompts.h"
#include "core/ui/QtWaitContext.h"
#include "link/ClsDriverKdx.h"
#include "link/ClsKdxCommands.h"
#include "link/LoadLibraries.h"
#include "link/Mailbox.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korval {

class FormBase;
class MdiKorval;
class FrmKdxToolSplash;
class FrmMsgBox;
class FrmKdxDriverCallback;
class FrmKdxToolDetect;
class FrmKdxToolSetPort;
class FrmKdxAdmin;
class FrmKdxDriverRecovery;
class FrmDriverDebug;

struct ProgramFolders : ProgramPaths {
    std::string documentation;
};

// The program's folders under `programFolder`; settings move to the user's configuration
// folder when the program's own "Config" cannot be written.
ProgramFolders FoldersFor(const std::string& programFolder);

class KorvalApp {
public:
    KorvalApp(Prompts& prompts, ProgramFolders folders);
    ~KorvalApp();

    // Start-up in its fixed order; false when the program must end at once.
    bool Main();
    // Shutdown in its fixed order, from the main window's close.
    void Shutdown();

    // The window of that name or virtual name; null when it does not exist (yet).
    FormBase* Form(std::string_view name) const;
    bool IsVisible(std::string_view name) const;

    // Flags of the main window's buttons, read by the terminal's timer.
    bool stopFlag = false;
    bool runFlag = false;

    Prompts& prompts;
    ProgramFolders folders;
    QtWaitContext wait;
    ClsTimeDelay delay{wait};
    ClsDriverKdx kdx{delay};
    ClsKdxCommands commands;
    ClsIniFile iniFile;
    ClsClassIniFile classIniFile;
    Mailbox mailbox;

    MdiKorval* mdi = nullptr;
    FrmKdxToolSplash* splash = nullptr;
    FrmMsgBox* msgBox = nullptr;
    FrmKdxDriverCallback* callback = nullptr;
    FrmKdxToolDetect* detect = nullptr;
    FrmKdxToolSetPort* setPort = nullptr;
    FrmKdxAdmin* admin = nullptr;
    FrmKdxDriverRecovery* recovery = nullptr;
    FrmDriverDebug* debug = nullptr;
    std::vector<FormBase*> forms; // in load order: the record of what is saved and unloaded

private:
    void LoadForms();
    void UnloadForms();
    void splashStatus(const std::string& text);
    bool ended_ = false;
};

KorvalApp& App();

} // namespace korval
