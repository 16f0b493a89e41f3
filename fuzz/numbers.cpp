// The number rules on any text: leniently read, tested, rounded and written back.
#include "core/Numbers.h"
#include "core/ClsMathConversions.h"
#include "core/Currency.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace korval;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const double value = Val(text);
    if (IsNumeric(text) && text.find(',') == std::string_view::npos && std::isnan(value)) {
        std::abort(); // a number reads as a number
    }
    (void)ToInt32(value);
    (void)Round(value);
    (void)NumToText(value);
    (void)Str(value);
    (void)FormatGrouped(value, 1);
    (void)FormatGrouped(value, 7);
    (void)ClsMathConversions::BitsLowFirst(value, 8);
    if (const auto money = Currency::fromDouble(value)) {
        (void)money->toText();
    }
    if (std::isfinite(value)) {
        const auto digits = RoundDecimal(value, 4, Halves::ToEven);
        if (digits.integer.empty() || digits.fraction.size() != 4) {
            std::abort();
        }
    }
    return 0;
}
