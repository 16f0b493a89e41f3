#pragma once
// The program from start to end: start-up in its fixed order, the loading of every window from
// the registry, and shutdown, which takes everything down again in its own order.
#include "FormRegistry.h"

#include "core/ui/KorvalServices.h"

#include <string>

namespace korval {

class KorvalStartup {
public:
    KorvalStartup(Prompts& prompts, ProgramFolders folders);
    ~KorvalStartup();
    KorvalStartup(const KorvalStartup&) = delete;
    KorvalStartup& operator=(const KorvalStartup&) = delete;

    // Start-up in its fixed order; false when the program must end at once.
    bool Main();
    // Shutdown in its fixed order, from the main window's close.
    void Shutdown();

    KorvalServices& services() { return services_; }

private:
    void LoadForms();
    void place(FormBase& form, Placement placement);
    void UnloadForms();
    void splashStatus(const std::string& text);
    // A settings file that could not be kept or read is told once, with the reason.
    void tellSettingsProblem();

    KorvalServices services_;
    bool ended_ = false;
};

} // namespace korval
