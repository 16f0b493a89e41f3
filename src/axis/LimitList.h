#pragma once
// The limit switch list of the axis tools and the controller's limit setting of each row.
// Four rows share two settings, so the way back from a setting picks one row for each.
#include <optional>
#include <string>
#include <vector>

namespace korval {

inline constexpr int LimitSettingLowest = -2;
inline constexpr int LimitSettingHighest = 2;

std::vector<std::string> LimitRows();

// The setting of a row; a row outside the list gives 0, the controller's auto-detect.
int ListIndexToLimitValue(int row);

// The row shown for a controller's setting; null for a setting outside -2..2, which leaves
// the row as it was.
std::optional<int> LimitValueToListIndex(int value);

} // namespace korval
