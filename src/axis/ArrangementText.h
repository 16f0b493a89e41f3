#pragma once
// The driver's arrangement code in words, for the command line's report of the wizard.
#include <cstdint>
#include <string>

namespace korval {

// Empty for a code the wizard has no handler for.
std::string ArrangementText(std::int32_t code);

} // namespace korval
