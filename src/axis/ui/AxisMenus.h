#pragma once
// The axis room's menu entries: the wizard, and the set-up tool of each axis.
namespace korval {

class MdiKorval;

void WireAxisMenus(MdiKorval& mdi);

} // namespace korval
