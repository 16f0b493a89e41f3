#pragma once
// The program's global services, created once at start-up and released at the end, and the
// look-up of its windows by name. Windows reach the services and each other through the one
// instance, App(); only the start-up knows every window's class.
#include "FormBase.h"
#include "QtWaitContext.h"

#include "axis/AxisSet.h"
#include "core/ClsClassIniFile.h"
#include "core/ClsIniFile.h"
#include "core/Event.h"
#include "core/ProgramFolders.h"
#include "core/Prompts.h"
#include "link/ClsDriverKdx.h"
#include "link/ClsKdxCommands.h"
#include "link/Mailbox.h"
#include "link/ReplyTiming.h"

#include <string_view>
#include <vector>

namespace korval {

class MdiKorval;
class FrmKdxToolSplash;

class KorvalServices {
public:
    KorvalServices(Prompts& prompts, ProgramFolders folders);
    ~KorvalServices();
    KorvalServices(const KorvalServices&) = delete;
    KorvalServices& operator=(const KorvalServices&) = delete;

    // The loaded window of that name or virtual name; null when it does not exist (yet) or is
    // of another class.
    template <typename Window> Window* Form(std::string_view name) const {
        return dynamic_cast<Window*>(FindForm(name));
    }
    FormBase* FindForm(std::string_view name) const;
    bool IsVisible(std::string_view name) const;

    // Whether the port is open; the port window's "Port Open" box follows this.
    bool PortIsOpen();
    // True while start-up brings the saved settings back, before the main window is shown: a
    // control set back to its saved value is not the user asking for anything.
    bool Restoring() const;

    // Flags of the main window's buttons, read by the terminal's timer.
    bool stopFlag = false;
    bool runFlag = false;
    // The driver's whole terminal text, each time its sink changes; the terminal window shows it.
    Event<const std::string&> TerminalText;
    // Above 0 while a diagnostic scan or a troubleshooter owns the line (see LineHold): the
    // terminal and the program's own pollers leave the port alone meanwhile.
    int lineHeld = 0;
    // Raised by the detect window's abort: a set-up wizard that is searching ends.
    Event<> DetectAborted;
    // How long queries listen for their replies; "Exact timing" of the port settings.
    ReplyTiming replyTiming;

    Prompts& prompts;
    ProgramFolders folders;
    QtWaitContext wait;
    ClsTimeDelay delay{wait};
    ClsDriverKdx kdx{delay};
    ClsKdxCommands commands{&wait};
    ClsIniFile iniFile;
    ClsClassIniFile classIniFile;
    Mailbox mailbox;
    AxisSet axes{kdx}; // Axis1 to Axis4, shared by the set-up and the motion tools
    // The driver's status report sink, once the callback window has registered it.
    Mailbox::Box* statusReport = nullptr;

    // The frame and the splash: the kit's own windows, which every room addresses.
    MdiKorval* mdi = nullptr;
    FrmKdxToolSplash* splash = nullptr;
    // Every loaded window in load order: the record of what is saved and unloaded.
    std::vector<FormBase*> forms;
};

KorvalServices& App();
// Whether the program's services exist: a late timer after shutdown finds none.
bool AppRunning();

} // namespace korval
