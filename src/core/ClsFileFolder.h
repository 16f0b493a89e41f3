#pragma once
// Path texts of the program's own folders. Paths use this platform's separator, "/": the
// program's rule of a trailing separator on a folder path holds with it.
#include <string>
#include <string_view>

namespace korval {

class ClsFileFolder {
public:
    static constexpr char Separator = '/';

    // The folder path with exactly one trailing separator added where it has none.
    static std::string FormatPath(std::string_view path);
    // Everything up to and including the last separator; empty when there is none.
    static std::string GetPathOnly(std::string_view path);
    // Everything after the last separator.
    static std::string GetFileNameOnly(std::string_view path);
    // The first file named `name` in the tree below `root` (root itself first, then its folders
    // in name order); empty when there is none or the root cannot be read.
    static std::string FindFile(std::string_view name, const std::string& root);
    // Makes the folder and every missing parent; true when it exists afterwards.
    static bool MakeFolder(const std::string& path);
};

} // namespace korval
