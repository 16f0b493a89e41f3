#include "ClsFileFolder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace korval {

std::string ClsFileFolder::FormatPath(std::string_view path) {
    std::string out(path);
    if (out.empty() || out.back() != Separator) {
        out += Separator;
    }
    return out;
}

std::string ClsFileFolder::GetPathOnly(std::string_view path) {
    const auto at = path.rfind(Separator);
    return at == std::string_view::npos ? std::string() : std::string(path.substr(0, at + 1));
}

std::string ClsFileFolder::GetFileNameOnly(std::string_view path) {
    const auto at = path.rfind(Separator);
    return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string ClsFileFolder::FindFile(std::string_view name, const std::string& root) {
    // Breadth first, in name order, so the shallowest match wins and the result is repeatable.
    std::vector<fs::path> level{fs::path(root)};
    while (!level.empty()) {
        std::vector<fs::path> next;
        for (const auto& folder : level) {
            std::error_code ec;
            std::vector<fs::directory_entry> entries;
            for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
                entries.push_back(*it);
            }
            std::sort(entries.begin(), entries.end());
            for (const auto& entry : entries) {
                std::error_code kindEc;
                if (entry.is_regular_file(kindEc) && entry.path().filename() == name) {
                    return entry.path().string();
                }
                if (entry.is_directory(kindEc) && !entry.is_symlink(kindEc)) {
                    next.push_back(entry.path());
                }
            }
        }
        level = std::move(next);
    }
    return {};
}

bool ClsFileFolder::MakeFolder(const std::string& path) {
    std::error_code ec;
    fs::create_directories(path, ec);
    return fs::is_directory(path, ec);
}

} // namespace korval
