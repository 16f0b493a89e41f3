#include "CommandFormatter.h"

#include "core/Numbers.h"
#include "core/Text.h"

#include <regex>
#include <vector>

namespace korval {

namespace {

// Items split at commas and line ends, comments dropped, blanks around items removed.
std::vector<std::string> items(std::string_view text) {
    std::vector<std::string> out;
    std::string item;
    bool comment = false;
    const auto flush = [&] {
        auto t = std::string(TrimBlanks(item));
        if (!t.empty()) {
            out.push_back(std::move(t));
        }
        item.clear();
    };
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            comment = false;
            flush();
        } else if (comment) {
            continue;
        } else if (c == ';') {
            comment = true;
        } else if (c == ',') {
            flush();
        } else {
            item += c;
        }
    }
    flush();
    return out;
}

std::string analogSpan(int range) {
    const int a = range / 10;
    const int b = range % 10;
    if (range >= 1 && range <= 6) {
        return "1 to " + std::to_string(range * 1000);
    }
    if (a >= 1 && a <= 5 && b >= 1 && b <= 6 - a) {
        return std::to_string(a * 1000) + " to " + std::to_string((a + b) * 1000);
    }
    return "";
}

struct Pattern {
    std::regex re;
    std::string (*say)(const std::smatch&);
};

std::string m(const std::smatch& s, int i) {
    return s[i].str();
}

const std::vector<Pattern>& patterns() {
    static const std::vector<Pattern> table = {
        {std::regex("S([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " speed " + m(s, 2) + " steps/sec";
         }},
        {std::regex("S([1-4])M-([0-9]+)"),
         [](const std::smatch& s) {
             const auto span = analogSpan(std::stoi(m(s, 2)));
             return span.empty() ? "Motor " + m(s, 1) + " analog speed, unknown range " + m(s, 2)
                                 : "Motor " + m(s, 1) + " analog speed " + span + " steps/sec";
         }},
        {std::regex("I([1-4])M0"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " run to the + limit"; }},
        {std::regex("I([1-4])M-0"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " run to the - limit"; }},
        {std::regex("I([1-4])M([0-9]+)"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " index +" + m(s, 2) + " steps"; }},
        {std::regex("I([1-4])M-([0-9]+)"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " index -" + m(s, 2) + " steps"; }},
        {std::regex("IA([1-4])M-0"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " make the present position absolute zero";
         }},
        {std::regex("IA([1-4])M(-?[0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " move to absolute position " + m(s, 2) + " steps";
         }},
        {std::regex("P([0-9]+)"),
         [](const std::smatch& s) {
             return "Pause " + NumToText(std::stod(m(s, 1)) / 10) + " seconds";
         }},
        {std::regex("LA([0-9]+)"),
         [](const std::smatch& s) { return "Repeat " + m(s, 1) + " times"; }},
        {std::regex("PM-([0-4])"),
         [](const std::smatch& s) { return "The commands below belong to program " + m(s, 1); }},
        {std::regex("PM([0-4])"), [](const std::smatch& s) { return "Select program " + m(s, 1); }},
        {std::regex("setDM([0-9]+)"),
         [](const std::smatch& s) { return "Set the operating mode word to " + m(s, 1); }},
        {std::regex("setI([0-9]+)"),
         [](const std::smatch& s) { return "Set the multi-function input word to " + m(s, 1); }},
        {std::regex("setDA([0-9]+)"),
         [](const std::smatch& s) { return "Set the analog joystick dead band to " + m(s, 1); }},
        {std::regex("setPA([0-9]+)"),
         [](const std::smatch& s) { return "Set the output pulse width to " + m(s, 1); }},
        {std::regex("setP([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " output a pulse every " + m(s, 2) + " steps";
         }},
        {std::regex("setM([1-4])M([0-9]+)"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " motor setting " + m(s, 2); }},
        {std::regex("setL([1-4])M([0-9]+)"),
         [](const std::smatch& s) { return "Motor " + m(s, 1) + " limit setting " + m(s, 2); }},
        {std::regex("setj([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " primary joystick speed " + m(s, 2) + " steps/sec";
         }},
        {std::regex("setJ([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " secondary joystick speed " + m(s, 2) + " steps/sec";
         }},
        {std::regex("setjA([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " primary analog joystick setting " + m(s, 2);
         }},
        {std::regex("setJA([1-4])M([0-9]+)"),
         [](const std::smatch& s) {
             return "Motor " + m(s, 1) + " secondary analog joystick setting " + m(s, 2);
         }},
        {std::regex("get(M|L|P|j|J|jA|JA)([1-4])M"),
         [](const std::smatch& s) {
             const auto& w = m(s, 1);
             const char* what = w == "M"    ? "motor setting"
                                : w == "L"  ? "limit setting"
                                : w == "P"  ? "output pulse setting"
                                : w == "j"  ? "primary joystick speed"
                                : w == "J"  ? "secondary joystick speed"
                                : w == "jA" ? "primary analog joystick setting"
                                            : "secondary analog joystick setting";
             return "Read the " + std::string(what) + " of motor " + m(s, 2);
         }},
    };
    return table;
}

} // namespace

std::string describeCommand(std::string_view command) {
    struct Word {
        const char* word;
        const char* text;
    };
    static const Word Words[] = {
        {"F", "KDX Online with Echo Off"},
        {"E", "KDX Online with Echo On"},
        {"G", "KDX Online"},
        {"Q", "KDX Offline (Local Mode)"},
        {"K", "Kill the running program"},
        {"C", "Clear the current program"},
        {"R", "Run the current program"},
        {"rsm", "Store the settings"},
        {"(", "Begin moves that run together"},
        {")", "End moves that run together"},
        {"U90", "Wait for the Run button"},
        {"U0", "Wait for Input 1"},
        {"U5", "Output 1 on"},
        {"U4", "Output 1 off"},
        {"U15", "Output 2 on"},
        {"U14", "Output 2 off"},
        {"L0", "Repeat without end"},
        {"LM0", "The repeated part begins here"},
        {"lst", "List the current program"},
        {"PM", "Read the current program number"},
        {"PMA", "Read the current program's associate"},
        {"getD0", "Read the firmware version"},
        {"getD1", "Read the firmware date"},
        {"getD2", "Read the mode"},
        {"getDM", "Read the operating mode word"},
        {"getI", "Read the multi-function input word"},
        {"getDA", "Read the analog joystick dead band"},
        {"getPA", "Read the output pulse width"},
        {"O", "Read the over-travel setting"},
        {"@", "Read the analog input"},
        {"?", "Read the limit switches"},
        {"~", "Read the user inputs"},
        {"$", "Read the user outputs"},
    };
    for (const auto& w : Words) {
        if (command == w.word) {
            return w.text;
        }
    }
    const std::string text(command);
    std::smatch match;
    for (const auto& p : patterns()) {
        if (std::regex_match(text, match, p.re)) {
            return p.say(match);
        }
    }
    return "Unknown command";
}

std::string formatCommands(std::string_view text, bool withComments) {
    std::string out;
    for (const auto& item : items(text)) {
        out += item;
        if (item != "R" && item != "rsm") {
            out += ',';
        }
        if (withComments) {
            out += ';' + describeCommand(item);
        }
        out += '\r';
    }
    return out;
}

} // namespace korval
