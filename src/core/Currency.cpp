#include "Currency.h"

#include "Numbers.h"

#include <charconv>
#include <cmath>

namespace korval {

std::optional<Currency> Currency::fromDouble(double value) {
    if (!std::isfinite(value)) {
        return std::nullopt;
    }
    const auto d = RoundDecimal(value, 4, Halves::ToEven);
    std::int64_t units = 0;
    const auto text = d.integer + d.fraction;
    // Only the count's magnitude is parsed; past the range it does not fit an int64.
    if (std::from_chars(text.data(), text.data() + text.size(), units).ec != std::errc()) {
        return std::nullopt;
    }
    return fromUnits(d.negative ? -units : units);
}

std::string Currency::toText() const {
    const bool negative = units_ < 0;
    // Work in unsigned so the most negative value has a magnitude too.
    const auto magnitude =
        negative ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
    std::string text = (negative ? "-" : "") + std::to_string(magnitude / Scale);
    auto frac = std::to_string(magnitude % Scale + Scale).substr(1); // four digits
    while (!frac.empty() && frac.back() == '0') {
        frac.pop_back();
    }
    if (!frac.empty()) {
        text += "." + frac;
    }
    return text;
}

} // namespace korval
