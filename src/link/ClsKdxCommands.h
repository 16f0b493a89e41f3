#pragma once
// Holds the commands library and lays out command text through it.
#include <cstdint>
#include <string>

namespace korval {

class ClsKdxCommands {
public:
    ClsKdxCommands() = default;
    ~ClsKdxCommands();
    ClsKdxCommands(const ClsKdxCommands&) = delete;
    ClsKdxCommands& operator=(const ClsKdxCommands&) = delete;

    std::intptr_t LoadDll(const std::string& path);
    std::intptr_t UnLoadDll();
    // Mode 0: without comments, 1: with; any other mode gives an empty text without a call.
    std::string AutoFormatCommands(const std::string& text, std::int32_t mode);

private:
    void* library_ = nullptr;
    char* (*format_)(char*, std::int32_t) = nullptr;
    void (*free_)(char*) = nullptr;
};

} // namespace korval
