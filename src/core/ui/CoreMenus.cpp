#include "CoreMenus.h"

#include "FrmDriverDebug.h"
#include "FrmKdxAdmin.h"
#include "FrmKdxToolSplash.h"
#include "KorvalServices.h"
#include "MdiKorval.h"

#include "core/AdminSettings.h"
#include "core/HelpDocuments.h"

#include <QDesktopServices>
#include <QUrl>

namespace korval {

namespace {

void adminPassword(const std::function<void()>& onMatch) {
    if (AdminPasswordAccepted(App().prompts.InputBox("Enter Password", "KORVAL Password"))) {
        onMatch();
    }
}

void openHelp(const HelpDocument& document) {
    auto& app = App();
    const auto chosen =
        app.prompts.OpenFile({"Open Help File", document.filter,
                              app.folders.application + document.folder, document.file});
    if (chosen && !chosen->empty()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromLocal8Bit(chosen->c_str())));
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
    for (const int size : {8, 10, 12, 14, 18, 24}) {
        mdi.SetHandler(QString("MnuFormatFont%1").arg(size), [&mdi, size] { mdi.FontSize(size); });
    }
}

} // namespace korval
