#pragma once
// Controller text as a shell reads it.
#include <string>

namespace korval::cli {

// What came back, as lines: the controller ends its lines with CR alone.
std::string AsLines(std::string reply);
// Program text and reports end lines with CR LF; a shell wants LF.
std::string ForShell(std::string text);

} // namespace korval::cli
