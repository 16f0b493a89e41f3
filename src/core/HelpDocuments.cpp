#include "HelpDocuments.h"

namespace korval {

namespace {

const HelpDocument Documents[] = {
    {"MnuHelpAutoRevInstr", "Documentation/KORVAL Users Manual/",
     "Help Files (*.htm;*.html)|*.htm;*.html", "AutoReverse.html"},
    {"MnuHelpCableConnections", "Documentation/Cable Connections",
     "Cable Connections (*.pdf)|*.pdf", "Cable Connections.pdf"},
    {"MnuHelpKorvalManual", "Documentation/KORVAL Users Manual",
     "KORVAL User Manual(*.htm;*.html)|*.htm;*.html", "Table of Contents.html"},
    {"MnuHelpKdxManual", "Documentation/KDX Users Manual",
     "KDX User Manual (*.pdf)|*.pdf|KDX User Manual(*.html)|*.html", "kdx_user_manl.pdf"},
};

} // namespace

std::span<const HelpDocument> HelpDocuments() {
    return Documents;
}

} // namespace korval
