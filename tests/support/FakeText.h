#pragma once
// A text result as the driver library gives one: the bytes, zero-ended, owned by the caller
// (who frees it), and the length through the out argument.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

inline char* FakeText(const std::string& text, std::int32_t* length) {
    auto* out = static_cast<char*>(std::malloc(text.size() + 1));
    std::memcpy(out, text.data(), text.size());
    out[text.size()] = '\0';
    if (length != nullptr) {
        *length = static_cast<std::int32_t>(text.size());
    }
    return out;
}

// The text argument the program handed over.
inline std::string FakeArg(const char* text, std::int32_t length) {
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : std::string();
}
