#pragma once
// The reference of every motor setting that the axis tool's help button opens: the copy beside
// the program, or one the user points at when that copy is missing.
#include "core/Prompts.h"

#include <optional>
#include <string>

namespace korval {

inline constexpr const char* MotorConfigsFile = "All Possible Motor Configs.ini";

// The file to open; empty when it is missing and the user cancels the search for it.
std::optional<std::string> MotorConfigsDocument(const std::string& programFolder, Prompts& prompts);

} // namespace korval
