// korval-screenshot FILE.png [SECONDS]: starts the window program as a user would, lets it talk
// to the controller for a moment, and saves a picture of the main window.
#include "KorvalStartup.h"

#include "core/ui/MdiKorval.h"
#include "core/ui/QtPrompts.h"

#include <QApplication>
#include <QPixmap>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: korval-screenshot FILE.png [SECONDS]\n");
        return 2;
    }
    korval::QtPrompts prompts([] { return nullptr; });
    korval::KorvalStartup program(
        prompts, korval::FoldersFor(QApplication::applicationDirPath().toStdString()));
    if (!program.Main()) {
        return 1;
    }
    auto& app = program.services();
    app.delay.TimeDelay(argc > 2 ? std::atof(argv[2]) : 2.0);
    const bool saved = app.mdi->grab().save(QString::fromLocal8Bit(argv[1]));
    program.Shutdown();
    QApplication::processEvents();
    return saved ? 0 : 1;
}
