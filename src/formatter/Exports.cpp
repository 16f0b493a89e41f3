// The C face of the commands library.
#include "CommandFormatter.h"
#include "KdxCommandsApi.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

extern "C" {

// Nothing may be thrown across a C interface: a text that cannot be laid out (there is no
// such text, short of memory running out) gives no result, which the caller reads as empty.
char* FormatCommands(const char* buffer, int32_t length, int32_t flag, int32_t* resultLength) {
    if (resultLength != nullptr) {
        *resultLength = 0;
    }
    try {
        const std::string_view input(
            buffer != nullptr && length > 0 ? buffer : "",
            buffer != nullptr && length > 0 ? static_cast<std::size_t>(length) : 0);
        const auto text = korval::formatCommands(input, flag == 1);
        auto* out = static_cast<char*>(std::malloc(text.size() + 1));
        if (out != nullptr) {
            std::memcpy(out, text.c_str(), text.size() + 1);
            if (resultLength != nullptr) {
                *resultLength = static_cast<int32_t>(text.size());
            }
        }
        return out;
    } catch (...) {
        return nullptr;
    }
}

void FreeText(char* text) {
    std::free(text);
}

} // extern "C"
