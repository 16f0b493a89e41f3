#pragma once
// The motion room's menu entries and tool bar buttons.
namespace korval {

class MdiKorval;

void WireMotionMenus(MdiKorval& mdi);

} // namespace korval
