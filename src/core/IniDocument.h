#pragma once
// The settings file as the profile functions see it: sections of "key=value" lines, section
// and key lookup ignoring case and the white space around them. A value's further lines are
// written as continuation lines that begin with two tabs; they are kept for reading by eye,
// never taken for a key or a section, and a read gives the value's first line only.
// Sections and keys are indexed, so that reading a file and every lookup in it take time in
// proportion to the file's size, not its square.
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korval {

class IniDocument {
public:
    static IniDocument parse(std::string_view bytes);
    // CR LF line ends, duplicate sections and keys merged away. What reads back from the text is
    // what get() finds in this document.
    std::string serialize() const;

    // The first matching value, trimmed; empty when the section or the key is missing.
    std::optional<std::string> get(std::string_view section, std::string_view key) const;
    void set(std::string_view section, std::string_view key, std::string_view value);
    void removeItem(std::string_view section, std::string_view key);
    void removeSection(std::string_view section);

private:
    struct Line {
        std::string key; // as written, leading tab and all; empty for a line that is no item
        std::string value;
        std::vector<std::string> continuation;
        bool isItem = false;
    };
    struct Section {
        std::string name;
        std::vector<Line> lines;
        std::unordered_map<std::string, std::size_t> firstItem; // folded key -> line
        void reindex();
    };
    void reindexNames();
    std::vector<Line> preamble_; // lines before the first section
    std::vector<Section> sections_;
    std::unordered_map<std::string, std::vector<std::size_t>> byName_; // folded name -> sections
};

} // namespace korval
