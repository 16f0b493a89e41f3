#pragma once
// The AutoReverse tool's combo lists, in the order the combos hold them, and what each entry
// puts into a program.
#include "AutoReverseSettings.h"

#include <string>
#include <vector>

namespace korval {

const std::vector<std::string>& StartStyleList();
const std::vector<std::string>& StartInstanceList();
const std::vector<std::string>& HomeActionList(); // CmbHomeIO: a row of asterisks, then actions
const std::vector<std::string>&
ReturnActionList(); // CmbReturnPosition: "Move to Start", then actions
const std::vector<std::string>& MoveModeList();
const std::vector<std::string>& RepeatList();

// The velocity list: index 0 is "Steps / Second", 1 to 21 the controller's analog ranges.
const std::vector<std::string>& VelocityStyleList();
constexpr int StepsPerSecond = 0;
constexpr int VelocityStyleCount = 22;
// The range's code, as written after "M-" in a program and, negated, given to a jog; 0 for
// index 0 and for an index outside the list.
int AnalogRangeCode(int index);
// The text the speed box shows for an analog range ("1 to 1000 Steps / Sec = "); empty for 0.
std::string AnalogSpeedText(int index);
// The fastest speed of a range, in steps per second; 0 for index 0 and outside the list.
int AnalogRangeTop(int index);

// The program line of an action of index 2 to 7 ("U90,"); empty for the others, the pause
// included, whose line depends on its box.
std::string ActionCommand(UserAction action);

} // namespace korval
