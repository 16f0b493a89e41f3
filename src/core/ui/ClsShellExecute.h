#pragma once
// Opening a file with the program the desktop has for it, as a double click would.
#include <string>

namespace korval {

class ClsShellExecute {
public:
    // The verb is "Open"; false when it is another, or when nothing took the file.
    static bool ShellProgram(const std::string& verb, const std::string& file);
};

} // namespace korval
