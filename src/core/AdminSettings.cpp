#include "AdminSettings.h"

#include <algorithm>
#include <cctype>

namespace korval {

const std::vector<AdminCheck>& AdminChecks() {
    static const std::vector<AdminCheck> checks = {
        {"ChkFileOpenForEdit", "Open File for Editing", {"MnuFileOpenForEdit", "MnuFileBrk1"}},
        {"ChkFileTransfer", "File Transfer to Kdx", {"MnuFileTransfer"}},
        {"ChkFileKdxGet", "Get File from KDX", {"MnuFileKdxGet"}},
        {"ChkToolsScriptEditor", "Script Editor", {"MnuToolsScriptEditor"}},
        {"ChkFormat", "Format", {"MnuFormat"}},
        {"ChkWizard", "Wizard", {"MnuWizard"}},
        {"ChkToolsSetCommo", "Set Up Communications", {"MnuToolsSetCommo"}},
        {"ChkToolsSetUpAxis", "Set Up Axis", {"MnuToolsSetUpAxis"}},
        {"ChkToolsSetUpAttachedDevice", "Set Up Attached Devices", {"MnuToolsSetUpAttachedDevice"}},
        {"ChkToolsVirtualJog", "Virtual Jog", {"MnuToolsVirtualJog"}},
        {"ChkToolsAutoReverse", "AutoReverse", {"MnuToolsAutoReverse"}},
        {"ChkToolsQuickMoveSingle", "Single Axis QuickMove", {"MnuToolsQuickMoveSingle"}},
        {"ChkToolsQuickMoveSimultaneous",
         "Simultaneous Axis QuickMove",
         {"MnuToolsQuickMoveSimultaneous"}},
        {"ChkToolsTerminal", "Terminal", {"MnuToolsTerminal"}},
    };
    return checks;
}

bool AdminPasswordAccepted(const std::string& answer) {
    std::string upper = answer;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return !upper.empty() && upper == "MARIGO";
}

} // namespace korval
