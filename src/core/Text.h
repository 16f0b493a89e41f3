#pragma once
// Small text helpers used across the rules.
#include <string>
#include <string_view>

namespace korval {

// Without the spaces and tabs at either end.
std::string_view TrimBlanks(std::string_view text);

// Every occurrence of `from`, left to right, replaced by `to` (which is not searched again).
void ReplaceAll(std::string& text, std::string_view from, std::string_view to);

} // namespace korval
