// The Help menu's documents, the about box, and the tool windows inside the main window.
#include "AppFixture.h"

#include "core/ui/FrmKdxToolSplash.h"
#include "core/ui/MdiKorval.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QUrl>

using namespace korval;
using namespace korval::test;

namespace {

// Stands in for the desktop's viewer: what the program asked it to open.
class Viewer : public QObject {
    Q_OBJECT
public:
    std::vector<std::string> opened;
public slots:
    void open(const QUrl& url) { opened.push_back(url.toLocalFile().toStdString()); }
};

struct WindowsFixture : AppFixture {
    Viewer viewer;

    void SetUp() override {
        AppFixture::SetUp();
        QDesktopServices::setUrlHandler("file", &viewer, "open");
        linkCom1("/nonexistent/tty");
        withDriverFolder();
        withConfig();
    }
    void TearDown() override {
        AppFixture::TearDown();
        QDesktopServices::unsetUrlHandler("file");
    }
    void choose(const char* menu) { app->mdi->Menu(menu)->trigger(); }
    QMdiSubWindow* frame(const char* form) const { return app->FindForm(form)->SubWindow(); }
};

} // namespace

TEST_F(WindowsFixture, HelpEntriesOpenTheirDocumentsFromTheBuildTree) {
    std::filesystem::create_directory_symlink(KORVAL_DOCUMENTATION_DIR,
                                              folder.file("Documentation"));
    ASSERT_TRUE(start());
    const struct {
        const char* menu;
        const char* document;
    } cases[] = {
        {"MnuHelpKorvalManual", "KORVAL Users Manual/Table of Contents.html"},
        {"MnuHelpAutoRevInstr", "KORVAL Users Manual/AutoReverse.html"},
        {"MnuHelpKdxManual", "KDX Users Manual/kdx_user_manl.pdf"},
        {"MnuHelpCableConnections", "Cable Connections/Cable Connections.pdf"},
    };
    for (const auto& c : cases) {
        viewer.opened.clear();
        choose(c.menu);
        const auto expected = folder.file("Documentation/") + c.document;
        EXPECT_EQ(viewer.opened, std::vector<std::string>{expected}) << c.menu;
        EXPECT_TRUE(std::filesystem::is_regular_file(expected)) << expected;
    }
    EXPECT_TRUE(prompts.asked.empty()) << "no dialogue when the document is there";
}

TEST_F(WindowsFixture, AMissingDocumentIsLookedForInItsFolderThroughTheDialogue) {
    ASSERT_TRUE(start());
    prompts.files = {std::nullopt, folder.file("chosen.pdf")};
    choose("MnuHelpCableConnections"); // cancelled: nothing opens
    choose("MnuHelpCableConnections");
    ASSERT_EQ(prompts.dialogs.size(), 2u);
    const auto& dialog = prompts.dialogs[1];
    EXPECT_EQ(dialog.title, "Open Help File");
    EXPECT_EQ(dialog.filter, "Cable Connections (*.pdf)|*.pdf");
    EXPECT_EQ(dialog.initialFolder, folder.path() + "/Documentation/Cable Connections");
    EXPECT_EQ(dialog.fileName, "Cable Connections.pdf");
    EXPECT_EQ(viewer.opened, std::vector<std::string>{folder.file("chosen.pdf")});
}

TEST_F(WindowsFixture, TheAboutBoxClosesWithEscapeAndWithItsButton) {
    ASSERT_TRUE(start());
    auto* about = app->splash;
    for (const bool escape : {true, false}) {
        choose("MnuHelpAbout");
        ASSERT_TRUE(about->isVisible());
        ASSERT_TRUE(about->CmdOK()->isVisible());
        if (escape) {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(about->CmdOK(), &key);
        } else {
            about->CmdOK()->click();
        }
        EXPECT_FALSE(about->isVisible()) << (escape ? "Escape" : "OK");
    }
    EXPECT_TRUE(about->windowFlags().testFlag(Qt::SplashScreen)) << "a splash again for shutdown";
}

TEST_F(WindowsFixture, ToolWindowsOpenApartAndTheWindowMenuArrangesAndListsThem) {
    ASSERT_TRUE(start());
    for (const char* menu : {"MnuToolsTerminal", "MnuToolsScriptEditor", "MnuDriverRecovery"}) {
        choose(menu);
    }
    const auto frames = app->mdi->Area()->subWindowList();
    const auto apart = [&](auto covers) {
        for (auto* a : frames) {
            for (auto* b : frames) {
                EXPECT_TRUE(a == b || !a->isVisible() || !b->isVisible() || !covers(a, b))
                    << a->windowTitle().toStdString() << " on " << b->windowTitle().toStdString();
            }
        }
    };
    apart([](QWidget* a, QWidget* b) { return a->pos() == b->pos(); });
    auto* menu = app->mdi->Menu("MnuWindow")->menu();
    emit menu->aboutToShow();
    std::vector<std::string> listed;
    for (auto* entry : menu->findChildren<QAction*>("WindowListEntry")) {
        listed.push_back(entry->text().toStdString() + (entry->isChecked() ? " *" : ""));
        if (entry->text() == "KDX Terminal") {
            entry->trigger();
        }
    }
    EXPECT_EQ(listed, (std::vector<std::string>{"KDX Terminal", "Script Editor",
                                                "Driver Recovery Tools *"}));
    EXPECT_EQ(app->mdi->Area()->activeSubWindow(), frame("FrmKdxToolTerminal"));
    choose("MnuWindowTile");
    apart([](QWidget* a, QWidget* b) { return a->geometry().intersects(b->geometry()); });
}

TEST_F(WindowsFixture, EveryWindowCarriesTheProgramsOwnIcon) {
    ASSERT_TRUE(start());
    const auto icon = QApplication::windowIcon();
    ASSERT_FALSE(icon.pixmap(32).isNull()) << "the icon is built into the program";
    EXPECT_EQ(icon.pixmap(32).toImage(), QIcon(":/korval/korval.svg").pixmap(32).toImage());
    choose("MnuToolsTerminal");
    for (auto* form : app->forms) {
        EXPECT_EQ(form->windowIcon().cacheKey(), icon.cacheKey()) << form->Name();
    }
    EXPECT_EQ(frame("FrmKdxToolTerminal")->windowIcon().cacheKey(), icon.cacheKey());
}

#include "HelpAndWindowsTest.moc"
