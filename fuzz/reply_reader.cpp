// The driver's reader of its own answers: any bytes, in any pieces, for any kind of answer.
// Nothing the controller sends may be lost: every byte is the answer, the item's echo, or passed
// on to the program, in order.
#include "driver/ReplyReader.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using korval::driver::ReplyKind;
using korval::driver::ReplyReader;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    static const char* const Items[] = {"V,", "X1,", "getM3M,", "setM1M3,rsm", "lst,", "F,"};
    static const ReplyKind Kinds[] = {ReplyKind::Status, ReplyKind::Word,    ReplyKind::Word,
                                      ReplyKind::Stored, ReplyKind::Listing, ReplyKind::None};
    const auto pick = data[0] % 6;
    ReplyReader reader(Kinds[pick], Items[pick]);
    std::string_view input(reinterpret_cast<const char*>(data + 1), size - 1);
    std::string passed;
    std::size_t fed = 0;
    // A 0xFF byte ends a piece (and is fed with it).
    while (!input.empty()) {
        const auto cut = input.find('\xFF');
        const auto end = cut == std::string_view::npos ? input.size() : cut + 1;
        passed += reader.feed(input.substr(0, end));
        fed += end;
        input.remove_prefix(end);
    }
    const std::string item = Items[pick];
    const auto kept = passed.size() + reader.reply().size();
    // What is neither passed on nor the answer can only be the item's echo (and the caret that
    // ends a setting).
    if (kept > fed || fed - kept > item.size() + 1) {
        std::abort();
    }
    if (reader.complete() && Kinds[pick] == ReplyKind::Status && reader.reply().size() > 2) {
        std::abort();
    }
    return 0;
}
