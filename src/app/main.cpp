// korval: the window program.
#include "KorvalStartup.h"

#include "core/ui/MdiKorval.h"
#include "core/ui/QtPrompts.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setApplicationName("KORVAL");
    korval::KorvalStartup* startup = nullptr;
    korval::QtPrompts prompts([&startup]() -> QWidget* {
        return startup != nullptr ? startup->services().mdi : nullptr;
    });
    korval::KorvalStartup program(
        prompts, korval::FoldersFor(QApplication::applicationDirPath().toStdString()));
    startup = &program;
    if (!program.Main()) {
        return 1;
    }
    return QApplication::exec();
}
