#include "Text.h"

namespace korval {

std::string_view TrimBlanks(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    auto at = from.empty() ? std::string::npos : text.find(from);
    if (at == std::string::npos) {
        return;
    }
    // Built anew rather than replaced in place, which would move the rest of a long text at
    // every match.
    std::string out;
    out.reserve(text.size());
    std::size_t done = 0;
    for (; at != std::string::npos; at = text.find(from, done)) {
        out.append(text, done, at - done);
        out.append(to);
        done = at + from.size();
    }
    out.append(text, done);
    text = std::move(out);
}

} // namespace korval
