#include "MotorOptions.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QAction>
#include <QRadioButton>

namespace korval {

bool AxisOffered(int axis) {
    const auto* entry = App().mdi->Menu(QString("MnuToolsSetUpAxis%1").arg(axis));
    return entry != nullptr && entry->isEnabled();
}

QRadioButton* OptMotor(const QWidget& form, int axis) {
    return form.findChild<QRadioButton*>(QString("OptMotor%1").arg(axis));
}

AxesPresent OfferedAxes(const QWidget& form) {
    AxesPresent offered;
    for (int axis = 1; axis <= 4; ++axis) {
        if (const auto* option = OptMotor(form, axis);
            option != nullptr && option->isEnabledTo(&form)) {
            offered.Add(axis);
        }
    }
    return offered;
}

void TellRefusal(QuickMoveRefusal refusal, const std::string& title) {
    if (refusal != QuickMoveRefusal::None && refusal != QuickMoveRefusal::NothingToMove) {
        App().prompts.Message(RefusalText(refusal), title, Prompts::Icon::Warning,
                              Prompts::Buttons::Ok);
    }
}

int SelectedMotor(const QWidget& form) {
    for (int axis = 1; axis <= 4; ++axis) {
        if (const auto* option = OptMotor(form, axis); option != nullptr && option->isChecked()) {
            return axis;
        }
    }
    return 0;
}

} // namespace korval
