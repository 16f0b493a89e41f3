#include "ProgramMemory.h"

#include "core/Text.h"

#include <algorithm>
#include <array>

namespace korval {

namespace {

constexpr int StartProgram = ProgramCount; // the slot of the program current at the start

bool digit(char c) {
    return c >= '0' && c <= '9';
}

bool allZero(std::string_view digits) {
    return !digits.empty() && digits.find_first_not_of('0') == std::string_view::npos;
}

// A motor command "S1M500", "I2M-0", "IA1M-400": the value behind the M, or none.
bool motorValue(std::string_view item, std::string_view head, std::string_view& value) {
    if (!item.starts_with(head) || item.size() < head.size() + 2 || item[head.size()] < '1' ||
        item[head.size()] > '4' || item[head.size() + 1] != 'M') {
        return false;
    }
    value = item.substr(head.size() + 2);
    if (value.starts_with('-')) {
        value.remove_prefix(1);
    }
    return !value.empty() && std::all_of(value.begin(), value.end(), digit);
}

// The units one item takes in the program being built; 0 for what is not stored there.
int cost(std::string_view item) {
    std::string_view value;
    if (motorValue(item, "IA", value)) {
        return item.ends_with("M-0") ? 3 : 4; // making here zero is shorter than a move
    }
    if (motorValue(item, "I", value)) {
        return allZero(value) ? 3 : 4; // a run to a limit is shorter than an index
    }
    if (motorValue(item, "S", value)) {
        return 4;
    }
    const bool numbered = item.size() > 1 && digit(item[1]);
    if (item.starts_with("LA") && item.size() > 2 && digit(item[2])) {
        return 3;
    }
    if (item[0] == 'P' && numbered) {
        return 3;
    }
    if (item == "L0" || item == "LM0" || item == "(" || item == ")" ||
        (item[0] == 'U' && numbered)) {
        return 1;
    }
    return 0;
}

// The program a "PM{n}" or "PM-{n}" item selects, or -1.
int selected(std::string_view item, bool& emptied) {
    emptied = item.starts_with("PM-");
    const std::size_t digitAt = emptied ? 3 : 2;
    if (!item.starts_with("PM") || item.size() != digitAt + 1 || item[digitAt] < '0' ||
        item[digitAt] > '4') {
        return -1;
    }
    return item[digitAt] - '0';
}

} // namespace

ProgramUse LargestProgram(std::string_view script, int current) {
    std::array<int, ProgramCount + 1> units{};
    int at = current >= 0 && current < ProgramCount ? current : StartProgram;
    const auto take = [&](std::string_view raw) {
        const auto item = TrimBlanks(raw);
        bool emptied = false;
        if (item.empty()) {
            return;
        }
        if (item == "C") {
            units[static_cast<std::size_t>(at)] = 0;
        } else if (const int program = selected(item, emptied); program >= 0) {
            at = program;
            if (emptied) {
                units[static_cast<std::size_t>(at)] = 0;
            }
        } else {
            units[static_cast<std::size_t>(at)] += cost(item);
        }
    };
    // Items end at commas and line ends; brackets stand alone; comments run to the line end.
    std::size_t start = 0;
    bool comment = false;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const char c = script[i];
        if (c == '\r' || c == '\n') {
            if (!comment) {
                take(script.substr(start, i - start));
            }
            comment = false;
            start = i + 1;
        } else if (comment) {
            continue;
        } else if (c == ';' || c == ',' || c == '(' || c == ')') {
            take(script.substr(start, i - start));
            if (c == '(' || c == ')') {
                take(script.substr(i, 1));
            }
            comment = c == ';';
            start = i + 1;
        }
    }
    if (!comment) {
        take(script.substr(start));
    }
    const auto largest = std::max_element(units.begin(), units.end());
    const int program = static_cast<int>(largest - units.begin());
    return {*largest, program == StartProgram ? -1 : program};
}

std::string MemoryProblem(std::string_view script) {
    const auto use = LargestProgram(script);
    if (use.units <= ProgramMemoryUnits) {
        return {};
    }
    const auto which =
        use.program < 0 ? std::string("one program") : "program " + std::to_string(use.program);
    return "The script is too large for the KDX: it needs " + std::to_string(use.units) +
           " memory units for " + which + ", and the KDX holds " +
           std::to_string(ProgramMemoryUnits) + " units in each of its " +
           std::to_string(ProgramCount) + " programs. Nothing was sent.";
}

} // namespace korval
