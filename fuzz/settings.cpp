// The settings file: any bytes read, saved and read again. Every item that reading finds must
// read back the same after a save, and every value goes through the walker's checks.
#include "core/IniDocument.h"
#include "core/SettingsValue.h"
#include "core/Text.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace korval;

namespace {

// Every section and key the text names, as a reader might ask for them.
std::vector<std::pair<std::string, std::string>> askedFor(std::string_view text) {
    std::vector<std::pair<std::string, std::string>> out;
    std::string section;
    std::size_t start = 0;
    while (start <= text.size()) {
        auto end = text.find_first_of("\r\n", start);
        end = end == std::string_view::npos ? text.size() : end;
        const auto line = text.substr(start, end - start);
        if (const auto t = TrimBlanks(line); t.starts_with('[')) {
            section = std::string(t.substr(1, t.find(']') - 1));
        } else if (const auto eq = line.find('='); eq != std::string_view::npos) {
            out.emplace_back(section, std::string(line.substr(0, eq)));
        }
        start = end + 1;
    }
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto doc = IniDocument::parse(text);
    const auto saved = doc.serialize();
    const auto again = IniDocument::parse(saved);
    if (again.serialize() != saved) {
        std::abort(); // a save of a saved file changes it
    }
    for (const auto& [section, key] : askedFor(text)) {
        const auto before = doc.get(section, key);
        if (before != again.get(section, key)) {
            std::abort(); // saving lost or changed an item that reading found
        }
        if (before) {
            for (const auto kind :
                 {ControlKind::Combo, ControlKind::Check, ControlKind::Option, ControlKind::Text}) {
                if (const auto value = CheckedSettingsValue(kind, *before)) {
                    ListIndexWithin(*value, 8);
                }
            }
        }
    }
    auto edited = again;
    edited.set("Run", "Times", text.substr(0, 40));
    edited.removeSection("MdiKorval");
    edited.removeItem("Run", "Times");
    (void)edited.serialize();
    return 0;
}
