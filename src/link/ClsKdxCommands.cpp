#include "ClsKdxCommands.h"

#include "LibraryFile.h"

#include <dlfcn.h>

#include "core/ClsTimeDelay.h"

#include <algorithm>
#include <chrono>

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
    auto* format = reinterpret_cast<decltype(format_)>(dlsym(library, "FormatCommands"));
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
    format_ = nullptr;
    free_ = nullptr;
    int result = 0;
    do {
        if (events_ != nullptr) {
            events_->runEvents(std::chrono::milliseconds(1));
        }
        result = library_ != nullptr ? dlclose(library_) : 0;
        library_ = nullptr;
    } while (result != 0);
    return result;
}

std::string ClsKdxCommands::AutoFormatCommands(const std::string& text, std::int32_t mode) {
    if ((mode != 0 && mode != 1) || format_ == nullptr) {
        return {};
    }
    std::int32_t size = 0;
    char* result = format_(text.data(), static_cast<std::int32_t>(text.size()), mode, &size);
    if (result == nullptr) {
        return {};
    }
    std::string out(result, static_cast<std::size_t>(std::max<std::int32_t>(size, 0)));
    free_(result);
    return out;
}

} // namespace korval
