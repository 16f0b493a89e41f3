#pragma once
// Lays command text out one command to a line, with or without a comment that says in words
// what each command does.
#include <string>
#include <string_view>

namespace korval {

std::string formatCommands(std::string_view text, bool withComments);

// The comment for one command, without the ";".
std::string describeCommand(std::string_view command);

} // namespace korval
