// The virtual controller's language: any bytes from the host, in pieces with time between them.
// The first byte picks the arrangement.
#include "sim/KdxChain.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace korval::sim;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    static const char* const Arrangements[] = {"1", "2", "2+1", "1+2", "1+1", "2+2"};
    SimOptions options;
    options.arrangement = Arrangements[data[0] % 6];
    options.echo = (data[0] & 0x80) != 0;
    KdxChain chain(options);
    std::string_view input(reinterpret_cast<const char*>(data + 1), size - 1);
    // A line feed ends a piece; the time that passes after it grows with the byte before it.
    while (!input.empty()) {
        const auto end = std::min(input.find('\n'), input.size());
        chain.receive(input.substr(0, end));
        const auto pause = end > 0 ? static_cast<unsigned char>(input[end - 1]) : 1;
        chain.advanceMs(pause % 64 * 7);
        if (chain.takeOutput().size() > KdxChain::MaxOutput) {
            std::abort(); // the controller's output is bounded
        }
        input.remove_prefix(std::min(end + 1, input.size()));
    }
    return 0;
}
