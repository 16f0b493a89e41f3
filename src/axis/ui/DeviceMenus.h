#pragma once
// The menu entries of the motor settings calculator and of the attached devices' choosers.
namespace korval {

class MdiKorval;

void WireDeviceMenus(MdiKorval& mdi);

} // namespace korval
