#pragma once
// A signed fixed-point number with four decimals (advance per step, motor current, seconds of
// a pause). Held as a count of ten-thousandths so sums and products of typed values are exact.
#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace korval {

class Currency {
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromUnits(std::int64_t tenThousandths) {
        Currency c;
        c.units_ = tenThousandths;
        return c;
    }
    // Halves of the last place go to the even neighbour; empty when out of range or NaN.
    static std::optional<Currency> fromDouble(double value);

    constexpr std::int64_t units() const { return units_; }
    double toDouble() const { return static_cast<double>(units_) / Scale; }
    // Shortest text: 2 -> "2", 1.5 -> "1.5", 0.0001 -> "0.0001", -3.25 -> "-3.25".
    std::string toText() const;

    constexpr auto operator<=>(const Currency&) const = default;

private:
    std::int64_t units_ = 0;
};

} // namespace korval
