#include "core/ClsClassIniFile.h"
#include "core/ClsReadWriteFile.h"
#include "core/SettingsValue.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <memory>

using namespace korval;

namespace {

struct Control : WalkedControl {
    ControlKind kind;
    std::string name;
    std::string value;
    int changes = 0;
    Control(ControlKind k, std::string n, std::string v)
        : kind(k), name(std::move(n)), value(std::move(v)) {}
    ControlKind Kind() const override { return kind; }
    std::string Name() const override { return name; }
    std::string Value() const override { return value; }
    void SetValue(const std::string& v) override {
        value = v;
        ++changes;
    }
};

struct Form : WalkedForm {
    std::string name;
    std::string virtualName;
    int top = 100;
    int left = 200;
    std::vector<std::unique_ptr<Control>> controls;

    explicit Form(std::string n, std::string v = "")
        : name(std::move(n)), virtualName(std::move(v)) {}
    Control& add(ControlKind k, const std::string& n, const std::string& v) {
        controls.push_back(std::make_unique<Control>(k, n, v));
        return *controls.back();
    }
    std::string Name() const override { return name; }
    std::string GetVirtualName() const override { return virtualName; }
    int Top() const override { return top; }
    int Left() const override { return left; }
    void SetTop(int t) override { top = t; }
    void SetLeft(int l) override { left = l; }
    std::vector<WalkedControl*> Controls() override {
        std::vector<WalkedControl*> out;
        for (auto& c : controls) {
            out.push_back(c.get());
        }
        return out;
    }
};

std::unique_ptr<Form> axisWindow(int copy) {
    auto form =
        std::make_unique<Form>("FrmKdxToolSetAxis", "FrmKdxToolSetAxis" + std::to_string(copy));
    form->add(ControlKind::Combo, "CmbMotorSetting", "-1");
    form->add(ControlKind::Option, "OptMotor1", "False");
    form->add(ControlKind::Check, "ChkInvert", "0");
    form->add(ControlKind::Text, "TxtNotes", "");
    form->add(ControlKind::Menu, "MnuAxis", "True");
    return form;
}

} // namespace

TEST(Walker, FourCopiesKeepFourSectionsAndEveryKindRoundTrips) {
    TempFolder dir;
    const auto file = dir.file("KORVAL Settings.ini");
    ClsClassIniFile ini;
    ini.BeginBatch();
    for (int copy = 1; copy <= 4; ++copy) {
        auto form = axisWindow(copy);
        form->top = copy * 10;
        form->controls[0]->value = std::to_string(copy);
        form->controls[1]->value = copy % 2 ? "True" : "False";
        form->controls[2]->value = "1";
        form->controls[3]->value = "axis " + std::to_string(copy) + "\r\nsecond line";
        form->controls[4]->value = "False";
        ini.WriteIni(*form, file);
    }
    ASSERT_TRUE(ini.EndBatch());

    const auto text = readWholeFile(file).value();
    EXPECT_NE(
        text.find("[FrmKdxToolSetAxis3]\r\nFrmKdxToolSetAxis.Top=30\r\n"
                  "FrmKdxToolSetAxis.Left=200\r\n\tCmbMotorSetting.ListIndex=3\r\n"
                  "\tOptMotor1.Value=True\r\n\tChkInvert.Value=1\r\n"
                  "\tTxtNotes.Text=axis 3\r\n\t\tsecond line\r\n\tMnuAxis.Enabled=False\r\n=" +
                  std::string(79, '=') + "\r\n"),
        std::string::npos)
        << text;

    ClsClassIniFile fresh;
    for (int copy = 1; copy <= 4; ++copy) {
        auto form = axisWindow(copy);
        fresh.ReadIniWithoutForm(*form, file);
        EXPECT_EQ(form->top, copy * 10);
        EXPECT_EQ(form->controls[0]->value, std::to_string(copy));
        EXPECT_EQ(form->controls[1]->value, copy % 2 ? "True" : "False");
        EXPECT_EQ(form->controls[2]->value, "1");
        EXPECT_EQ(form->controls[3]->value, "axis " + std::to_string(copy)) << "first line only";
        EXPECT_EQ(form->controls[4]->value, "True") << "menus are not restored by the walk";
        EXPECT_EQ(form->controls[0]->changes, 1) << "restoring runs the control's handler";
    }
}

TEST(Walker, MissingItemsKeepDesignValuesAndANewVirtualNameStartsAfresh) {
    TempFolder dir;
    const auto file = dir.file("KORVAL Settings.ini");
    ClsClassIniFile ini;
    auto form = axisWindow(1);
    form->controls[0]->value = "2";
    ini.WriteIni(*form, file);

    auto renamed = axisWindow(1);
    renamed->virtualName = "FrmKdxToolSetAxis9";
    ini.ReadIni(*renamed, file);
    EXPECT_EQ(renamed->controls[0]->value, "-1");
    EXPECT_EQ(renamed->controls[0]->changes, 0);
    EXPECT_EQ(renamed->top, 100);
    ini.WriteIni(*renamed, file);
    EXPECT_EQ(ini.ProfileGetItem("FrmKdxToolSetAxis1", "CmbMotorSetting.ListIndex", "", file), "2")
        << "the old section stays";

    Form plain("FrmKdxToolSetPort", "FrmKdxToolSetPort");
    EXPECT_EQ(ClsClassIniFile::SectionOf(plain), "FrmKdxToolSetPort");
}

TEST(Walker, ValuesAreReadWithTheWalkersConversions) {
    TempFolder dir;
    const auto file = dir.file("s.ini");
    ClsClassIniFile ini;
    ini.ProfileSaveItem("F", "F.Top", "12.7abc", file);
    ini.ProfileSaveItem("F", "\tCmb.ListIndex", "2.5", file);
    ini.ProfileSaveItem("F", "\tOpt.Value", "-1", file);
    ini.ProfileSaveItem("F", "\tChk.Value", "junk", file);
    Form form("F");
    auto& cmb = form.add(ControlKind::Combo, "Cmb", "0");
    auto& opt = form.add(ControlKind::Option, "Opt", "False");
    auto& chk = form.add(ControlKind::Check, "Chk", "1");
    ini.ReadIni(form, file);
    EXPECT_EQ(form.top, 13);
    EXPECT_EQ(cmb.value, "2");
    EXPECT_EQ(opt.value, "True");
    EXPECT_EQ(chk.value, "1") << "junk is skipped: the design value stays";
    const struct {
        const char* text;
        bool value;
    } booleans[] = {{"True", true}, {"false", false}, {"-1", true}, {"0", false}, {"", false}};
    for (const auto& b : booleans) {
        EXPECT_EQ(BooleanFromText(b.text), b.value) << b.text;
    }
}

TEST(Walker, ADamagedValueIsSkippedAndTheControlKeepsItsOwn) {
    TempFolder dir;
    const auto file = dir.file("s.ini");
    const struct {
        ControlKind kind;
        const char* saved;
        const char* restored; // nullptr: skipped
    } cases[] = {
        {ControlKind::Combo, "2147483648", nullptr},
        {ControlKind::Combo, "1e400", nullptr},
        {ControlKind::Combo, "-99999999999", nullptr},
        {ControlKind::Combo, "-2", nullptr},
        {ControlKind::Combo, "3 apples", nullptr},
        {ControlKind::Combo, "nan", nullptr},
        {ControlKind::Combo, "-1", "-1"},
        {ControlKind::Combo, " 2 ", "2"},
        {ControlKind::Check, "2", nullptr},
        {ControlKind::Check, "1e400", nullptr},
        {ControlKind::Check, "0", "0"},
        {ControlKind::Check, "1.2", "1"},
        {ControlKind::Option, "maybe", nullptr},
        {ControlKind::Option, "FALSE", "False"},
        {ControlKind::Option, "-1", "True"},
        {ControlKind::Text, "1e400", "1e400"},
    };
    for (const auto& c : cases) {
        ClsClassIniFile ini;
        ini.ProfileSaveItem("F", "\tC.Value", c.saved, file);
        ini.ProfileSaveItem("F", "\tC.ListIndex", c.saved, file);
        ini.ProfileSaveItem("F", "\tC.Text", c.saved, file);
        Form form("F");
        auto& control = form.add(c.kind, "C", "design");
        ini.ReadIni(form, file);
        EXPECT_EQ(control.value, c.restored ? c.restored : "design") << c.saved;
        EXPECT_EQ(control.changes, c.restored ? 1 : 0) << c.saved;
    }
    for (const auto& [text, index] :
         {std::pair{"-1", -1}, {"2", 2}, {"3", -9}, {"-2", -9}, {"2 ", -9}, {"99999999999", -9}}) {
        EXPECT_EQ(ListIndexWithin(text, 3).value_or(-9), index) << text;
    }
}
