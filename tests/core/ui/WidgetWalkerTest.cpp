#include "core/ClsClassIniFile.h"
#include "core/ClsReadWriteFile.h"
#include "core/ui/FormBase.h"

#include "support/TempFolder.h"

#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace korval;

namespace {

// A main window with a menu entry and a combo box of its own, and a tool window adopted into
// the MDI area inside it, as the program arranges them.
struct Windows {
    FormBase outer{"MdiOuter", "Outer"};
    FormBase* inner = new FormBase("FrmInner", "Inner");
    QAction* menu = new QAction("Open", &outer);
    QComboBox* outerCombo = new QComboBox(&outer);
    QComboBox* innerCombo = new QComboBox(inner);
    QPlainTextEdit* innerText = new QPlainTextEdit(inner);

    Windows() {
        menu->setObjectName("MnuFileOpenForEdit");
        outerCombo->setObjectName("CmbOuter");
        outerCombo->addItems({"a", "b", "c"});
        outerCombo->setCurrentIndex(1);
        innerCombo->setObjectName("CmbInner");
        innerCombo->addItems({"x", "y"});
        innerText->setObjectName("TxtInner");
        innerText->setPlainText("inner text");
        auto* layout = new QVBoxLayout(&outer);
        auto* area = new QMdiArea(&outer);
        layout->addWidget(outerCombo);
        layout->addWidget(area);
        inner->SetSubWindow(area->addSubWindow(inner));
    }
};

// The lines of one section of the saved file.
std::string sectionOf(const std::string& text, const std::string& name) {
    const auto start = text.find("[" + name + "]\r\n");
    if (start == std::string::npos) {
        return {};
    }
    const auto end = text.find("\r\n[", start);
    return text.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

} // namespace

TEST(WidgetWalker, EachWindowSavesItsOwnControlsOnly) {
    TempFolder dir;
    const auto file = dir.file("KORVAL Settings.ini");
    Windows w;
    w.menu->setVisible(false); // hidden by the administrator, still working
    ClsClassIniFile ini;
    ini.WriteIni(w.outer.Walked(), file);
    ini.WriteIni(w.inner->Walked(), file);
    EXPECT_TRUE(w.menu->isVisible() == false && w.menu->isEnabled() == false)
        << "saving changes nothing";
    w.menu->setVisible(true);
    EXPECT_TRUE(w.menu->isEnabled());

    const auto text = readWholeFile(file).value_or("");
    const auto outer = sectionOf(text, "MdiOuter");
    const auto inner = sectionOf(text, "FrmInner");
    const struct {
        const std::string& section;
        const char* line;
        bool present;
    } cases[] = {
        {outer, "\tMnuFileOpenForEdit.Enabled=True\r\n", true},
        {outer, "\tCmbOuter.ListIndex=1\r\n", true},
        {outer, "CmbInner", false},
        {outer, "TxtInner", false},
        {inner, "\tCmbInner.ListIndex=0\r\n", true},
        {inner, "\tTxtInner.Text=inner text\r\n", true},
        {inner, "CmbOuter", false},
        {inner, "MnuFileOpenForEdit", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.section.find(c.line) != std::string::npos, c.present) << c.line << "\n" << text;
    }
}

TEST(WidgetWalker, AComboKeepsItsIndexWhenTheSavedOneIsNotInItsList) {
    TempFolder dir;
    const auto file = dir.file("KORVAL Settings.ini");
    const struct {
        const char* saved;
        int index;
    } cases[] = {
        {"2147483648", 1}, {"1e400", 1}, {"-99999999999", 1}, {"3", 1}, {"-7", 1},
        {"x", 1},          {"2", 2},     {"-1", -1},
    };
    for (const auto& c : cases) {
        Windows w;
        ClsClassIniFile ini;
        ini.ProfileSaveItem("MdiOuter", "\tCmbOuter.ListIndex", c.saved, file);
        ini.ReadIni(w.outer.Walked(), file);
        EXPECT_EQ(w.outerCombo->currentIndex(), c.index) << c.saved;
    }
}
