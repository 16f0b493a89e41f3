// The C face of the commands library.
#include "CommandFormatter.h"
#include "KdxCommandsApi.h"

#include <cstdlib>
#include <cstring>

extern "C" {

char* FormatCommands(char* buffer, int32_t flag) {
    const auto text = korval::formatCommands(buffer != nullptr ? buffer : "", flag == 1);
    auto* out = static_cast<char*>(std::malloc(text.size() + 1));
    if (out != nullptr) {
        std::memcpy(out, text.c_str(), text.size() + 1);
    }
    return out;
}

void FreeText(char* text) {
    std::free(text);
}

} // extern "C"
