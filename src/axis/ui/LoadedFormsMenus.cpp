#include "LoadedFormsMenus.h"

#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QAction>

namespace korval {

void LoadedFormsMenus::SetMenuEnabled(const std::string& menu, bool enabled) {
    auto& mdi = *App().mdi;
    const auto name = Latin1(menu);
    // An entry whose window does not exist yet stays off: it would do nothing.
    if (enabled && !mdi.HasHandler(name)) {
        return;
    }
    if (auto* action = mdi.Menu(name)) {
        action->setEnabled(enabled);
    }
}

void LoadedFormsMenus::SetOptMotor34Enabled(bool enabled) {
    for (auto* form : App().forms) {
        for (const char* name : {"OptMotor3", "OptMotor4"}) {
            for (auto* control : form->findChildren<QWidget*>(name)) {
                control->setEnabled(enabled);
            }
        }
    }
}

} // namespace korval
