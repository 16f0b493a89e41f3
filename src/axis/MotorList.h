#pragma once
// The motor list of the axis tools. Its row number is the controller's motor setting, so a
// model needs no table of settings; a row with no model at that setting is blank and can't
// stay selected.
#include <optional>
#include <string>
#include <vector>

namespace korval {

// The rows of CmbSetBy.
enum class MotorMake { Vexta = 0, Superior = 1, MotorSetting = 2 };

inline constexpr int MotorSettingCount = 7; // settings 0 to 6, one row each
inline constexpr const char* SetByTip = "Pick your motor model or motor setting";

std::vector<std::string> MotorMakeRows();
// Null for a row that is no make.
std::optional<MotorMake> MotorMakeFromRow(int row);

// The seven rows of CmbMotorSetting under a make; blank rows are empty texts.
std::vector<std::string> MotorRows(MotorMake make);
std::string MotorRowsTip(MotorMake make);
// Blank under that make, or outside the list.
bool IsBlankMotorRow(MotorMake make, int row);
// The row first offered under a make: the wizard's choice when the make changes.
int FirstMotorRow(MotorMake make);
// The make a controller's motor setting is shown under; null for a setting outside the list.
std::optional<MotorMake> MakeForMotorSetting(int setting);

// Keeps the last good row of each make: a click on a blank row goes back to it.
class MotorRowGuard {
public:
    // The row that ends up selected when `row` is clicked under `make`.
    int Pick(MotorMake make, int row);

    int LastVextaIndex = 1;
    int LastSuperiorIndex = 2;
    int LastSettingIndex = 0;

private:
    int& last(MotorMake make);
};

} // namespace korval
