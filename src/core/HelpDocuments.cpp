#include "HelpDocuments.h"

#include <filesystem>
#include <system_error>

namespace korval {

namespace {

const HelpDocument Documents[] = {
    {"MnuHelpAutoRevInstr", "Documentation/KORVAL Users Manual/",
     "Help Files (*.htm;*.html)|*.htm;*.html", "AutoReverse.html", ""},
    {"MnuHelpCableConnections", "Documentation/Cable Connections",
     "Cable Connections (*.pdf)|*.pdf", "Cable Connections.pdf", ""},
    {"MnuHelpKorvalManual", "Documentation/KORVAL Users Manual",
     "KORVAL User Manual(*.htm;*.html)|*.htm;*.html", "Table of Contents.html", ""},
    {"MnuHelpKdxManual", "Documentation/KDX Users Manual",
     "KDX User Manual (*.pdf)|*.pdf|KDX User Manual(*.html)|*.html", "kdx_user_manl.pdf",
     "kdx_user_manl.html"},
};

} // namespace

std::span<const HelpDocument> HelpDocuments() {
    return Documents;
}

std::string PresentHelpFile(const HelpDocument& document, const std::string& programFolder) {
    const auto folder = std::filesystem::path(programFolder) / document.folder;
    for (const char* name : {document.file, document.alternative}) {
        std::error_code ec;
        const auto path = folder / name;
        if (*name != '\0' && std::filesystem::is_regular_file(path, ec)) {
            return path.lexically_normal().string();
        }
    }
    return {};
}

} // namespace korval
