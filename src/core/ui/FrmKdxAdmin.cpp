#include "FrmKdxAdmin.h"
#include "core/qt/Latin1.h"

#include "KorvalServices.h"
#include "MdiKorval.h"

#include "core/AdminSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace korval {

FrmKdxAdmin::FrmKdxAdmin() : FormBase("FrmKdxAdmin", "Administrator Settings") {
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox("Disabled Menus", this);
    frame->setObjectName("FrameDisabledForms");
    auto* grid = new QGridLayout(frame);
    int row = 0;
    for (const auto& check : AdminChecks()) {
        auto* box = new QCheckBox(Latin1(check.caption), frame);
        box->setObjectName(Latin1(check.box));
        grid->addWidget(box, row % 7, row / 7);
        ++row;
        const auto menus = check.menus;
        // Restoring the settings runs this too: that is how the hiding survives a restart.
        connect(box, &QCheckBox::toggled, this, [menus](bool checked) {
            for (const auto menu : menus) {
                if (auto* action = App().mdi->Menu(Latin1(menu))) {
                    action->setVisible(!checked);
                }
            }
        });
    }
    layout->addWidget(frame);
    auto* fixed = new QHBoxLayout();
    for (const auto& [name, caption] :
         {std::pair{"LblHelp", "Help"}, std::pair{"LblAdministrator", "Administrator"},
          std::pair{"LblTroubleshooting", "Troubleshooting"}}) {
        auto* label = new QLabel(caption, this);
        label->setObjectName(name);
        label->setFrameShape(QFrame::Box);
        label->setToolTip("Always shown");
        fixed->addWidget(label);
    }
    layout->addLayout(fixed);
}

} // namespace korval
