#include "CoreMenus.h"

#include "ClsShellExecute.h"
#include "FrmDriverDebug.h"
#include "FrmKdxAdmin.h"
#include "FrmKdxToolSplash.h"
#include "KorvalServices.h"
#include "MdiKorval.h"

#include "core/AdminSettings.h"
#include "core/HelpDocuments.h"

#include <QMdiArea>

namespace korval {

namespace {

void adminPassword(const std::function<void()>& onMatch) {
    if (AdminPasswordAccepted(App().prompts.InputBox("Enter Password", "KORVAL Password"))) {
        onMatch();
    }
}

// The document itself when it is there; the dialogue on its folder only when it is not.
void openHelp(const HelpDocument& document) {
    auto& app = App();
    if (const auto present = PresentHelpFile(document, app.folders.application); !present.empty()) {
        ClsShellExecute::ShellProgram("Open", present);
        return;
    }
    const auto chosen =
        app.prompts.OpenFile({"Open Help File", document.filter,
                              app.folders.application + document.folder, document.file});
    if (chosen && !chosen->empty()) {
        ClsShellExecute::ShellProgram("Open", *chosen);
    }
}

} // namespace

void WireCoreMenus(MdiKorval& mdi) {
    auto& app = App();
    auto* admin = app.Form<FrmKdxAdmin>("FrmKdxAdmin");
    auto* debug = app.Form<FrmDriverDebug>("FrmDriverDebug");
    mdi.SetHandler("MnuToolsAdminKorvalSettings",
                   [admin] { adminPassword([admin] { admin->ShowWindow(); }); });
    mdi.SetHandler("MnuDriverDebugShow", [&app, debug] {
        adminPassword([&app, debug] {
            app.kdx.DebugWindowShow();
            debug->ShowWindow(); // the traffic view is drawn here, inside the main window
            app.delay.TimeDelay(1);
        });
    });
    mdi.SetHandler("MnuDriverDebugHide", [&app, debug] {
        app.kdx.DebugWindowHide();
        debug->HideWindow();
    });
    mdi.SetHandler("MnuHelpAbout", [&app] { app.splash->ShowAbout(); });
    for (const auto& document : HelpDocuments()) {
        mdi.SetHandler(document.menu, [&document] { openHelp(document); });
    }
    mdi.SetHandler("MnuWindowCascade", [&mdi] { mdi.Area()->cascadeSubWindows(); });
    mdi.SetHandler("MnuWindowTile", [&mdi] { mdi.Area()->tileSubWindows(); });
    for (const int size : {8, 10, 12, 14, 18, 24}) {
        mdi.SetHandler(QString("MnuFormatFont%1").arg(size), [&mdi, size] { mdi.FontSize(size); });
    }
}

} // namespace korval
