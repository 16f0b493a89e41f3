#include "IniDocument.h"

#include "Text.h"

#include <algorithm>
#include <unordered_set>

namespace korval {

namespace {

// A name as lookup sees it: without the blanks around it, letters in lower case.
std::string folded(std::string_view name) {
    std::string out(TrimBlanks(name));
    for (auto& c : out) {
        c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return out;
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

// A key as written. One that begins with two tabs would be read back as the continuation of
// an item before it, which merging duplicate sections can put there: one tab less keeps it a key.
std::string_view writtenKey(std::string_view key) {
    while (key.starts_with("\t\t")) {
        key.remove_prefix(1);
    }
    return key;
}

} // namespace

void IniDocument::Section::reindex() {
    firstItem.clear();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].isItem) {
            firstItem.emplace(folded(lines[i].key), i);
        }
    }
}

void IniDocument::reindexNames() {
    byName_.clear();
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        byName_[folded(sections_[i].name)].push_back(i);
    }
}

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
            doc.sections_.push_back({std::string(TrimBlanks(name)), {}, {}});
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
    for (auto& section : doc.sections_) {
        section.reindex();
    }
    doc.reindexNames();
    return doc;
}

std::string IniDocument::serialize() const {
    std::string out;
    const auto writeLine = [&out](const Line& line) {
        if (line.isItem) {
            out += writtenKey(line.key);
            out += '=';
        }
        out += line.value;
        out += "\r\n";
        for (const auto& more : line.continuation) {
            out += more;
            out += "\r\n";
        }
    };
    for (const auto& line : preamble_) {
        writeLine(line);
    }
    std::unordered_set<std::string> writtenSections;
    for (const auto& section : sections_) {
        auto name = folded(section.name);
        if (!writtenSections.insert(name).second) {
            continue;
        }
        // A section named twice is written once, with the first value of every key.
        out += "[" + section.name + "]\r\n";
        std::unordered_set<std::string> keys;
        for (const auto index : byName_.at(name)) {
            for (const auto& line : sections_[index].lines) {
                if (!line.isItem || keys.insert(folded(line.key)).second) {
                    writeLine(line);
                }
            }
        }
    }
    return out;
}

std::optional<std::string> IniDocument::get(std::string_view section, std::string_view key) const {
    const auto named = byName_.find(folded(section));
    if (named == byName_.end()) {
        return std::nullopt;
    }
    const auto wanted = folded(key);
    for (const auto index : named->second) {
        const auto& s = sections_[index];
        if (const auto found = s.firstItem.find(wanted); found != s.firstItem.end()) {
            return std::string(TrimBlanks(s.lines[found->second].value));
        }
    }
    return std::nullopt;
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
    const auto name = folded(section);
    auto named = byName_.find(name);
    if (named == byName_.end()) {
        sections_.push_back({std::string(TrimBlanks(section)), {}, {}});
        named = byName_.emplace(name, std::vector<std::size_t>{sections_.size() - 1}).first;
    }
    auto& s = sections_[named->second.front()];
    const auto wanted = folded(key);
    if (const auto found = s.firstItem.find(wanted); found != s.firstItem.end()) {
        s.lines[found->second] = std::move(line);
        return;
    }
    // New items go after the section's last item, ahead of any blank lines that close it.
    auto pos = s.lines.end();
    while (pos != s.lines.begin() && !(pos - 1)->isItem && TrimBlanks((pos - 1)->value).empty()) {
        --pos;
    }
    if (pos == s.lines.end()) {
        s.firstItem.emplace(wanted, s.lines.size());
        s.lines.push_back(std::move(line));
        return;
    }
    s.lines.insert(pos, std::move(line));
    s.reindex();
}

void IniDocument::removeItem(std::string_view section, std::string_view key) {
    const auto named = byName_.find(folded(section));
    if (named == byName_.end()) {
        return;
    }
    const auto wanted = folded(key);
    for (const auto index : named->second) {
        auto& s = sections_[index];
        if (s.firstItem.contains(wanted)) {
            std::erase_if(s.lines,
                          [&](const Line& l) { return l.isItem && folded(l.key) == wanted; });
            s.reindex();
        }
    }
}

void IniDocument::removeSection(std::string_view section) {
    const auto name = folded(section);
    if (!byName_.contains(name)) {
        return;
    }
    std::erase_if(sections_, [&](const Section& s) { return folded(s.name) == name; });
    reindexNames();
}

} // namespace korval
