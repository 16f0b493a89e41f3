// The C face of the commands library.
#include "CommandFormatter.h"
#include "KdxCommandsApi.h"

#include <cstdlib>
#include <cstring>

extern "C" {

// Nothing may be thrown across a C interface: a text that cannot be laid out (there is no
// such text, short of memory running out) gives no result, which the caller reads as empty.
char* FormatCommands(char* buffer, int32_t flag) {
    try {
        const auto text = korval::formatCommands(buffer != nullptr ? buffer : "", flag == 1);
        auto* out = static_cast<char*>(std::malloc(text.size() + 1));
        if (out != nullptr) {
            std::memcpy(out, text.c_str(), text.size() + 1);
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
