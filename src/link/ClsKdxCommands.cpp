#include "ClsKdxCommands.h"

#include "LibraryFile.h"

#include <dlfcn.h>

#include <vector>

namespace korval {

ClsKdxCommands::~ClsKdxCommands() {
    UnLoadDll();
}

std::intptr_t ClsKdxCommands::LoadDll(const std::string& path) {
    UnLoadDll();
    if (!LibraryFileProblem(path).empty()) {
        return 0; // a damaged file would fault inside the loader
    }
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return 0;
    }
    auto* format =
        reinterpret_cast<char* (*)(char*, std::int32_t)>(dlsym(library, "FormatCommands"));
    auto* release = reinterpret_cast<void (*)(char*)>(dlsym(library, "FreeText"));
    if (format == nullptr || release == nullptr) {
        dlclose(library); // some other library: not ours to hold
        return 0;
    }
    library_ = library;
    format_ = format;
    free_ = release;
    return reinterpret_cast<std::intptr_t>(library_);
}

std::intptr_t ClsKdxCommands::UnLoadDll() {
    int result = 0;
    if (library_ != nullptr) {
        result = dlclose(library_);
    }
    library_ = nullptr;
    format_ = nullptr;
    free_ = nullptr;
    return result;
}

std::string ClsKdxCommands::AutoFormatCommands(const std::string& text, std::int32_t mode) {
    if ((mode != 0 && mode != 1) || format_ == nullptr) {
        return {};
    }
    std::vector<char> buffer(text.begin(), text.end());
    buffer.push_back('\0');
    char* result = format_(buffer.data(), mode);
    std::string out = result != nullptr ? result : "";
    if (result != nullptr) {
        free_(result);
    }
    return out;
}

} // namespace korval
