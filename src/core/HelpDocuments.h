#pragma once
// The Help menu's documents: the folder each entry opens under the program's folder, the
// dialogue's filter and the file it names.
#include <span>
#include <string>

namespace korval {

struct HelpDocument {
    const char* menu;
    const char* folder; // under the program's folder
    const char* filter;
    const char* file;
    const char* alternative; // opened when `file` is missing; "" for none
};

std::span<const HelpDocument> HelpDocuments();

// The document's file under the program's folder when it is there (its alternative when only
// that is); empty when neither is, and the entry falls back to its dialogue.
std::string PresentHelpFile(const HelpDocument& document, const std::string& programFolder);

} // namespace korval
