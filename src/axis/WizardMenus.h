#pragma once
// What the set-up wizard switches in the windows: the main window's axis menus, and the
// OptMotor3 and OptMotor4 buttons of every loaded window.
#include <string>

namespace korval {

class WizardMenus {
public:
    virtual ~WizardMenus() = default;
    // A main window menu by its name, such as "MnuToolsSetUpAxis3".
    virtual void SetMenuEnabled(const std::string& menu, bool enabled) = 0;
    // Every control named "OptMotor3" or "OptMotor4" on every loaded window.
    virtual void SetOptMotor34Enabled(bool enabled) = 0;
};

} // namespace korval
