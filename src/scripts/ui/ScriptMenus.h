#pragma once
// The File menu's ways into scripts, and the menu entries of the terminal and the editor.
namespace korval {

class MdiKorval;

void WireScriptMenus(MdiKorval& mdi);

// The two File paths, also reachable from tests.
void OpenScriptForEditing();
void TransferScript();

} // namespace korval
