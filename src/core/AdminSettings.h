#pragma once
// The administrator's window hides menus from everyday users behind a password.
#include <string>
#include <string_view>
#include <vector>

namespace korval {

struct AdminCheck {
    std::string_view box; // check box object name
    std::string_view caption;
    std::vector<std::string_view> menus; // hidden while the box is checked
};

const std::vector<AdminCheck>& AdminChecks();

// The answer to "Enter Password", compared in upper case.
bool AdminPasswordAccepted(const std::string& answer);

} // namespace korval
