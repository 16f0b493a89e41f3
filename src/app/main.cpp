// korval: the window program.
#include "core/ui/KorvalApp.h"
#include "core/ui/QtPrompts.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setApplicationName("KORVAL");
    QWidget* dialogParent = nullptr;
    korval::QtPrompts prompts(dialogParent);
    korval::KorvalApp app(prompts,
                          korval::FoldersFor(QApplication::applicationDirPath().toStdString()));
    if (!app.Main()) {
        return 1;
    }
    dialogParent = reinterpret_cast<QWidget*>(app.mdi);
    return QApplication::exec();
}
