#include "TerminalWindows.h"

#include <ostream>

namespace korval::cli {

std::string TerminalWindows::AxesWithMenusOn() const {
    std::string on;
    for (int axis = 1; axis <= 4; ++axis) {
        const auto menu = menus_.find("MnuToolsSetUpAxis" + std::to_string(axis));
        if (menu != menus_.end() && menu->second) {
            on += (on.empty() ? "" : " ") + std::to_string(axis);
        }
    }
    return on;
}

void TerminalWindows::ShowMessage(const std::string& text) {
    progress_ << text << "\n";
}

void TerminalWindows::ShowPleaseWait(bool shown) {
    if (shown) {
        progress_ << "Please Wait\n";
    }
}

void TerminalWindows::ShowPosition(const std::string& steps) {
    out_ << "Position: " << steps << "\n";
}

} // namespace korval::cli
