#pragma once
// Holds the commands library and lays out command text through it.
#include <cstdint>
#include <functional>
#include <string>

namespace korval {

class WaitContext;

// The commands formatter as the rules take it: text and comment flag in, laid-out text out.
using Formatter = std::function<std::string(const std::string& text, int flag)>;

class ClsKdxCommands {
public:
    // `events`, when given, runs pending events at each round of the release loop.
    explicit ClsKdxCommands(WaitContext* events = nullptr) : events_(events) {}
    ~ClsKdxCommands();
    ClsKdxCommands(const ClsKdxCommands&) = delete;
    ClsKdxCommands& operator=(const ClsKdxCommands&) = delete;

    std::intptr_t LoadDll(const std::string& path);
    // Releases the library in a loop until the release reports 0.
    std::intptr_t UnLoadDll();
    // Mode 0: without comments, 1: with; any other mode gives an empty text without a call.
    std::string AutoFormatCommands(const std::string& text, std::int32_t mode);
    // AutoFormatCommands for the rules that lay out text.
    Formatter AsFormatter() {
        return [this](const std::string& text, int flag) { return AutoFormatCommands(text, flag); };
    }

private:
    WaitContext* events_;
    void* library_ = nullptr;
    char* (*format_)(const char*, std::int32_t, std::int32_t, std::int32_t*) = nullptr;
    void (*free_)(char*) = nullptr;
};

} // namespace korval
