#include "ClsClassIniFile.h"

#include "Numbers.h"
#include "SettingsValue.h"

namespace korval {

namespace {

const char* suffixOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::Menu:
        return ".Enabled";
    case ControlKind::Combo:
        return ".ListIndex";
    case ControlKind::Text:
        return ".Text";
    case ControlKind::Option:
    case ControlKind::Check:
        break;
    }
    return ".Value";
}

std::string lower(std::string s) {
    for (auto& c : s) {
        c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return s;
}

} // namespace

bool BooleanFromText(const std::string& text) {
    const auto t = lower(text);
    if (t == "true") {
        return true;
    }
    if (t == "false") {
        return false;
    }
    return Val(text) != 0;
}

std::string ClsClassIniFile::SectionOf(const WalkedForm& form) {
    const auto virtualName = form.GetVirtualName();
    return !virtualName.empty() && virtualName != form.Name() ? virtualName : form.Name();
}

void ClsClassIniFile::ReadForm(WalkedForm& form, const std::string& file) {
    const auto section = SectionOf(form);
    if (const auto top = ProfileGetItem(section, form.Name() + ".Top", "", file); !top.empty()) {
        form.SetTop(ToInt32(Val(top)).value_or(form.Top()));
    }
    if (const auto left = ProfileGetItem(section, form.Name() + ".Left", "", file); !left.empty()) {
        form.SetLeft(ToInt32(Val(left)).value_or(form.Left()));
    }
}

void ClsClassIniFile::readControls(WalkedForm& form, const std::string& file) {
    const auto section = SectionOf(form);
    for (auto* control : form.Controls()) {
        if (control->Kind() == ControlKind::Menu) {
            continue; // only the axis menus are restored, by start-up itself
        }
        const auto value =
            ProfileGetItem(section, control->Name() + suffixOf(control->Kind()), "", file);
        if (value.empty()) {
            continue; // an empty item leaves the control as it is
        }
        if (const auto checked = CheckedSettingsValue(control->Kind(), value)) {
            control->SetValue(*checked);
        }
    }
}

void ClsClassIniFile::ReadIni(WalkedForm& form, const std::string& file) {
    ReadForm(form, file);
    readControls(form, file);
}

void ClsClassIniFile::ReadIniWithoutForm(WalkedForm& form, const std::string& file) {
    ReadIni(form, file);
}

void ClsClassIniFile::WriteIni(WalkedForm& form, const std::string& file) {
    const auto section = SectionOf(form);
    ProfileDeleteSection(section, file);
    ProfileSaveItem(section, form.Name() + ".Top", std::to_string(form.Top()), file);
    ProfileSaveItem(section, form.Name() + ".Left", std::to_string(form.Left()), file);
    for (auto* control : form.Controls()) {
        ProfileSaveItem(section, "\t" + control->Name() + suffixOf(control->Kind()),
                        control->Value(), file);
    }
    ProfileSaveItem(section, "", std::string(EndLineLength, '='), file);
}

} // namespace korval
