#pragma once
// The Help menu's documents: the folder each entry opens under the program's folder, the
// dialogue's filter and the file it names.
#include <span>

namespace korval {

struct HelpDocument {
    const char* menu;
    const char* folder; // under the program's folder
    const char* filter;
    const char* file;
};

std::span<const HelpDocument> HelpDocuments();

} // namespace korval
