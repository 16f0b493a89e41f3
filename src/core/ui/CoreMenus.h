#pragma once
// The main window's own entries: administrator settings, the driver's debug window, the Help
// menu, the font sizes.
namespace korval {

class MdiKorval;

void WireCoreMenus(MdiKorval& mdi);

} // namespace korval
