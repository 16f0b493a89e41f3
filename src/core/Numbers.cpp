#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace korval {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Length of the longest leading number of `text` in the lenient grammar (0 when none).
std::size_t numberPrefix(std::string_view text, bool allowGroupCommas) {
    std::size_t i = 0;
    const auto n = text.size();
    if (i < n && (text[i] == '+' || text[i] == '-')) {
        ++i;
    }
    std::size_t digits = 0;
    while (i < n && (isDigit(text[i]) || (allowGroupCommas && digits > 0 && text[i] == ','))) {
        digits += isDigit(text[i]) ? 1 : 0;
        ++i;
    }
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && isDigit(text[i])) {
            ++digits;
            ++i;
        }
    }
    if (digits == 0) {
        return 0;
    }
    if (i < n && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        std::size_t j = i + 1;
        if (j < n && (text[j] == '+' || text[j] == '-')) {
            ++j;
        }
        if (j < n && isDigit(text[j])) {
            while (j < n && isDigit(text[j])) {
                ++j;
            }
            i = j;
        }
    }
    return i;
}

std::string_view skipBlanks(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i])) {
        ++i;
    }
    return text.substr(i);
}

// True when a number that does not fit a double is too large rather than too small: the
// position of its first significant digit, moved by its exponent, lies above the point.
bool beyondLargest(std::string_view clean) {
    const auto e = clean.find('E');
    const auto mantissa = clean.substr(0, e);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return false;
    }
    // Digits before the point counted from the first significant one; below the point negative.
    long long magnitude = first < point ? static_cast<long long>(point - first)
                                        : -static_cast<long long>(first - point - 1);
    if (e != std::string_view::npos) {
        auto exponent = clean.substr(e + 1);
        const bool down = exponent.starts_with('-');
        exponent.remove_prefix(down ? 1 : 0);
        exponent = exponent.substr(std::min(exponent.find_first_not_of('0'), exponent.size()));
        // Past nine digits the exponent alone decides, whatever the mantissa's length.
        long long shift = exponent.size() > 9 ? 1'000'000'000'000LL : 0;
        for (const char c : exponent.substr(0, exponent.size() > 9 ? 0 : exponent.size())) {
            shift = shift * 10 + (c - '0');
        }
        magnitude += down ? -shift : shift;
    }
    return magnitude > 0;
}

double parsePrefix(std::string_view number) {
    std::string clean;
    clean.reserve(number.size());
    for (char c : number) {
        if (c == ',' || c == '+') {
            continue;
        }
        clean += (c == 'd' || c == 'D' || c == 'e') ? 'E' : c;
    }
    double value = 0;
    const char* first = clean.data();
    const auto result = std::from_chars(first, first + clean.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large or too small for a double, by many digits or by the exponent: saturate the
        // way a user would expect, to infinity or to zero.
        const bool negative = clean.starts_with('-');
        value = beyondLargest(negative ? std::string_view(clean).substr(1) : clean)
                    ? std::numeric_limits<double>::infinity()
                    : 0.0;
        return negative ? -value : value;
    }
    return value;
}

} // namespace

double Val(std::string_view text) {
    const auto rest = skipBlanks(text);
    const auto len = numberPrefix(rest, false);
    return len == 0 ? 0.0 : parsePrefix(rest.substr(0, len));
}

bool IsNumeric(std::string_view text) {
    auto rest = skipBlanks(text);
    while (!rest.empty() && isBlank(rest.back())) {
        rest.remove_suffix(1);
    }
    return !rest.empty() && numberPrefix(rest, true) == rest.size();
}

double Round(double value) {
    return std::nearbyint(value);
} // default mode: halves to even

std::optional<std::int32_t> ToInt32(double value) {
    const double r = Round(value);
    if (!(r >= std::numeric_limits<std::int32_t>::min() &&
          r <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(r);
}

std::string NumToText(double value) {
    if (value == 0) {
        return "0"; // no "-0"
    }
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15G", value);
    return buf;
}

std::string Str(double value) {
    auto text = NumToText(value);
    return value < 0 ? text : " " + text;
}

FixedDigits RoundDecimal(double value, int decimals, Halves halves) {
    char buf[400];
    const auto res =
        std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::fixed);
    const std::string_view digits(buf, static_cast<std::size_t>(res.ptr - buf));
    const auto dot = digits.find('.');
    const auto intPart = digits.substr(0, dot);
    auto frac = std::string(dot == std::string_view::npos ? "" : digits.substr(dot + 1));
    const auto cut = static_cast<std::size_t>(decimals);
    bool up = false;
    if (frac.size() > cut) {
        const auto rest = std::string_view(frac).substr(cut);
        const bool above = rest[0] > '5' || (rest[0] == '5' && rest.find_first_not_of('0', 1) !=
                                                                   std::string_view::npos);
        const bool half = rest[0] == '5' && !above;
        const char last = cut > 0 ? frac[cut - 1] : intPart.back();
        up = above || (half && (halves == Halves::AwayFromZero || (last - '0') % 2 == 1));
    }
    frac.resize(cut, '0');
    std::string all = std::string(intPart) + frac;
    if (up) {
        auto i = all.size();
        while (i > 0 && all[i - 1] == '9') {
            all[--i] = '0';
        }
        if (i == 0) {
            all.insert(all.begin(), '1');
        } else {
            ++all[i - 1];
        }
    }
    FixedDigits out;
    out.integer = all.substr(0, all.size() - cut);
    out.fraction = all.substr(all.size() - cut);
    out.negative = value < 0 && all.find_first_not_of('0') != std::string::npos;
    return out;
}

std::string FormatGrouped(double value, int decimals) {
    if (!std::isfinite(value)) {
        return NumToText(value);
    }
    const auto d = RoundDecimal(value, decimals, Halves::AwayFromZero);
    std::string text = d.negative ? "-" : "";
    for (std::size_t i = 0; i < d.integer.size(); ++i) {
        if (i > 0 && (d.integer.size() - i) % 3 == 0) {
            text += ',';
        }
        text += d.integer[i];
    }
    return decimals > 0 ? text + "." + d.fraction : text;
}

} // namespace korval
