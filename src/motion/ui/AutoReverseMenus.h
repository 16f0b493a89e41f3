#pragma once
// The AutoReverse tool's menu entry, which the tool bar's button follows.
namespace korval {

class MdiKorval;

void WireAutoReverseMenus(MdiKorval& mdi);

} // namespace korval
