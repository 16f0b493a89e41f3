#pragma once
// Values read from the settings file are checked before they reach a control: a damaged or
// foreign value is skipped, and the control keeps the value it has.
#include "ClsClassIniFile.h"

#include <optional>
#include <string>
#include <string_view>

namespace korval {

// The value in the form the walker hands to a control of that kind, or nothing:
// an option button or a menu takes "True"/"False" (from those words or a number, non-zero true), a
// check box "0" or "1", a combo box a whole index from -1 up, a text box any text.
std::optional<std::string> CheckedSettingsValue(ControlKind kind, std::string_view text);

// A combo box's index from its checked text, when the list of `count` entries has it (-1 is
// no selection).
std::optional<int> ListIndexWithin(std::string_view text, int count);

} // namespace korval
