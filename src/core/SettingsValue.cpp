#include "SettingsValue.h"

#include "Numbers.h"

#include <charconv>

namespace korval {

namespace {

std::string lower(std::string_view text) {
    std::string s(text);
    for (auto& c : s) {
        c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return s;
}

// A number that rounds to a 32-bit integer; nothing for any other text.
std::optional<std::int32_t> wholeNumber(std::string_view text) {
    if (!IsNumeric(text)) {
        return std::nullopt;
    }
    return ToInt32(Val(text));
}

} // namespace

std::optional<std::string> CheckedSettingsValue(ControlKind kind, std::string_view text) {
    switch (kind) {
    case ControlKind::Text:
        return std::string(text);
    case ControlKind::Menu:
    case ControlKind::Option: {
        const auto word = lower(text);
        if (word == "true" || word == "false") {
            return word == "true" ? "True" : "False";
        }
        if (!IsNumeric(text)) {
            return std::nullopt;
        }
        return Val(text) != 0 ? "True" : "False";
    }
    case ControlKind::Check: {
        const auto n = wholeNumber(text);
        return n && (*n == 0 || *n == 1) ? std::optional<std::string>(std::to_string(*n))
                                         : std::nullopt;
    }
    case ControlKind::Combo: {
        const auto n = wholeNumber(text);
        return n && *n >= -1 ? std::optional<std::string>(std::to_string(*n)) : std::nullopt;
    }
    }
    return std::nullopt;
}

std::optional<int> ListIndexWithin(std::string_view text, int count) {
    int index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc() || end != text.data() + text.size() || index < -1 || index >= count) {
        return std::nullopt;
    }
    return index;
}

} // namespace korval
