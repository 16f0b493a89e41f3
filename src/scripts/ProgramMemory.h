#pragma once
// How much of the controller's program memory a script takes: each program the script builds,
// in the controller's memory units (docs/protocol.md). A script that cannot fit is refused
// before anything of it is sent.
#include <string>
#include <string_view>

namespace korval {

inline constexpr int ProgramMemoryUnits = 256; // in each of the five programs
inline constexpr int ProgramCount = 5;

// The largest program the script builds: its units, and which program it is (-1: the one that
// is current when the script starts, taken as empty, as the script test's "C," leaves it).
struct ProgramUse {
    int units = 0;
    int program = -1;
};
ProgramUse LargestProgram(std::string_view script, int current = -1);

// What to tell the user about a script too large for the controller; empty when it fits.
std::string MemoryProblem(std::string_view script);

} // namespace korval
