#pragma once
// The wizard's switches as the program has them: the main window's menu entries, and every
// control named OptMotor3 or OptMotor4 on whichever windows are loaded, whatever room they
// belong to.
#include "axis/WizardMenus.h"

namespace korval {

class LoadedFormsMenus final : public WizardMenus {
public:
    void SetMenuEnabled(const std::string& menu, bool enabled) override;
    void SetOptMotor34Enabled(bool enabled) override;
};

} // namespace korval
