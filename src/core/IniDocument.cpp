#include "IniDocument.h"

#include "Text.h"

#include <algorithm>

namespace korval {

namespace {

bool sameName(std::string_view a, std::string_view b) {
    a = TrimBlanks(a);
    b = TrimBlanks(b);
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               const auto lower = [](char c) {
                   return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
               };
               return lower(x) == lower(y);
           });
}

// Splits at CR LF, CR or LF alike.
std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            lines.push_back(text.substr(start, i - start));
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
            start = i + 1;
        }
    }
    if (start < text.size()) {
        lines.push_back(text.substr(start));
    }
    return lines;
}

} // namespace

IniDocument IniDocument::parse(std::string_view bytes) {
    IniDocument doc;
    std::vector<Line>* target = &doc.preamble_;
    for (const auto raw : splitLines(bytes)) {
        const bool continues = !target->empty() && target->back().isItem;
        if (continues && raw.starts_with("\t\t")) {
            target->back().continuation.emplace_back(raw);
            continue;
        }
        const auto text = TrimBlanks(raw);
        if (text.starts_with('[')) {
            const auto close = text.find(']');
            auto name = text.substr(1, close == std::string_view::npos ? text.npos : close - 1);
            doc.sections_.push_back({std::string(TrimBlanks(name)), {}});
            target = &doc.sections_.back().lines;
            continue;
        }
        Line line;
        const auto eq = raw.find('=');
        if (eq == std::string_view::npos) {
            line.value = std::string(raw);
        } else {
            line.isItem = true;
            line.key = std::string(raw.substr(0, eq));
            line.value = std::string(raw.substr(eq + 1));
        }
        target->push_back(std::move(line));
    }
    return doc;
}

std::string IniDocument::serialize() const {
    std::string out;
    const auto writeLines = [&out](const std::vector<Line>& lines) {
        for (const auto& line : lines) {
            out += line.isItem ? line.key + "=" + line.value : line.value;
            out += "\r\n";
            for (const auto& more : line.continuation) {
                out += more + "\r\n";
            }
        }
    };
    writeLines(preamble_);
    std::vector<const Section*> written;
    for (const auto& section : sections_) {
        if (std::any_of(written.begin(), written.end(),
                        [&](const Section* s) { return sameName(s->name, section.name); })) {
            continue;
        }
        written.push_back(&section);
        // A section named twice is written once, with the first value of every key.
        std::vector<Line> merged;
        for (const auto& same : sections_) {
            if (!sameName(same.name, section.name)) {
                continue;
            }
            for (const auto& line : same.lines) {
                const bool duplicate =
                    line.isItem && std::any_of(merged.begin(), merged.end(), [&](const Line& l) {
                        return l.isItem && sameName(l.key, line.key);
                    });
                if (!duplicate) {
                    merged.push_back(line);
                }
            }
        }
        out += "[" + section.name + "]\r\n";
        writeLines(merged);
    }
    return out;
}

std::optional<std::string> IniDocument::get(std::string_view section, std::string_view key) const {
    for (const auto& s : sections_) {
        if (!sameName(s.name, section)) {
            continue;
        }
        for (const auto& line : s.lines) {
            if (line.isItem && sameName(line.key, key)) {
                return std::string(TrimBlanks(line.value));
            }
        }
    }
    return std::nullopt;
}

IniDocument::Section* IniDocument::findSection(std::string_view name) {
    const auto it = std::find_if(sections_.begin(), sections_.end(),
                                 [&](const Section& s) { return sameName(s.name, name); });
    return it == sections_.end() ? nullptr : &*it;
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value) {
    Line line;
    line.isItem = true;
    line.key = std::string(key);
    const auto parts = splitLines(value);
    line.value = parts.empty() ? std::string() : std::string(parts[0]);
    for (std::size_t i = 1; i < parts.size(); ++i) {
        line.continuation.push_back("\t\t" + std::string(parts[i]));
    }
    auto* s = findSection(section);
    if (s == nullptr) {
        sections_.push_back({std::string(TrimBlanks(section)), {}});
        s = &sections_.back();
    }
    const auto it = std::find_if(s->lines.begin(), s->lines.end(),
                                 [&](const Line& l) { return l.isItem && sameName(l.key, key); });
    if (it != s->lines.end()) {
        *it = std::move(line);
        return;
    }
    // New items go after the section's last item, ahead of any blank lines that close it.
    auto pos = s->lines.end();
    while (pos != s->lines.begin() && !(pos - 1)->isItem && TrimBlanks((pos - 1)->value).empty()) {
        --pos;
    }
    s->lines.insert(pos, std::move(line));
}

void IniDocument::removeItem(std::string_view section, std::string_view key) {
    for (auto& s : sections_) {
        if (sameName(s.name, section)) {
            std::erase_if(s.lines, [&](const Line& l) { return l.isItem && sameName(l.key, key); });
        }
    }
}

void IniDocument::removeSection(std::string_view section) {
    std::erase_if(sections_, [&](const Section& s) { return sameName(s.name, section); });
}

} // namespace korval
