#pragma once
// The settings walker: saves and restores every window's position and the values of its
// menus, combo boxes, option buttons, text boxes and check boxes, one section per window. The
// windows are seen through a small interface, so the walk is the same for real windows and for
// tests.
#include "ClsIniFile.h"

#include <string>
#include <vector>

namespace korval {

enum class ControlKind { Menu, Combo, Option, Text, Check };

class WalkedControl {
public:
    virtual ~WalkedControl() = default;
    virtual ControlKind Kind() const = 0;
    virtual std::string Name() const = 0;
    // The saved value as text: "True"/"False" for a menu's Enabled and an option button,
    // the index for a combo box (-1 for none), 0/1 for a check box, the text of a text box.
    virtual std::string Value() const = 0;
    // Restoring runs the control's own change handler, as a user's change would. The value has
    // been checked for its kind (SettingsValue.h); a control that cannot take it keeps its own.
    virtual void SetValue(const std::string& value) = 0;
};

class WalkedForm {
public:
    virtual ~WalkedForm() = default;
    virtual std::string Name() const = 0;
    virtual std::string GetVirtualName() const = 0;
    virtual int Top() const = 0;
    virtual int Left() const = 0;
    virtual void SetTop(int top) = 0;
    virtual void SetLeft(int left) = 0;
    virtual std::vector<WalkedControl*> Controls() = 0;
};

class ClsClassIniFile : public ClsIniFile {
public:
    static constexpr int EndLineLength = 79;

    // The window's section: its virtual name when it has one that differs from its name.
    static std::string SectionOf(const WalkedForm& form);

    void ReadIni(WalkedForm& form, const std::string& file);
    void ReadIniWithoutForm(WalkedForm& form, const std::string& file);
    void WriteIni(WalkedForm& form, const std::string& file);
    void ReadForm(WalkedForm& form, const std::string& file);

private:
    void readControls(WalkedForm& form, const std::string& file);
};

// "True", "False" or a number (non-zero is true) as the walker reads a Boolean item.
bool BooleanFromText(const std::string& text);

} // namespace korval
