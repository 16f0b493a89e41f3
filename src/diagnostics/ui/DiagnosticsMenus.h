#pragma once
// The Troubleshooting menu's entries and File > View KDX Programs.
namespace korval {

class MdiKorval;

void WireDiagnosticsMenus(MdiKorval& mdi);

// Stops and hides the four troubleshooters, so that at most one ever polls the controller.
void HideTroubleshooters();

} // namespace korval
