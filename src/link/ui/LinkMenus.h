#pragma once
// The link's entries of the main window: auto-detect (menu and button), the port settings,
// driver recovery.
namespace korval {

class MdiKorval;

void WireLinkMenus(MdiKorval& mdi);

} // namespace korval
