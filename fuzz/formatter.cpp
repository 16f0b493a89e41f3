// The commands library's formatter on any text: one command a line, stable when run again.
#include "formatter/CommandFormatter.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto plain = korval::formatCommands(text, false);
    if (korval::formatCommands(plain, false) != plain) {
        std::abort(); // formatting formatted text changes it
    }
    const auto commented = korval::formatCommands(text, true);
    if (korval::formatCommands(commented, false) != plain) {
        std::abort(); // the comments are not all dropped again
    }
    return 0;
}
