#pragma once
// The main window's menu tree: every entry's object name, caption and parent, in order. A
// parent of "" is the menu bar; a caption of "-" is a rule line.
#include <string_view>
#include <vector>

namespace korval {

struct MenuEntry {
    std::string_view name;
    std::string_view caption;
    std::string_view parent;
};

const std::vector<MenuEntry>& MenuTree();

} // namespace korval
