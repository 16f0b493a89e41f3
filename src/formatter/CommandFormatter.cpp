#include "CommandFormatter.h"

#include "core/Text.h"

#include <optional>
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

// A cursor over one command word. Each step takes a piece from the front when it is there;
// a form matches when its steps all take and nothing is left. No step looks back, so a word of
// any length is read in one pass and with no recursion.
class Word {
public:
    explicit Word(std::string_view text) : rest_(text) {}
    bool literal(std::string_view piece) {
        if (!rest_.starts_with(piece)) {
            return false;
        }
        rest_.remove_prefix(piece.size());
        return true;
    }
    // One character from `first` to `last`.
    bool digit(char first, char last, std::string_view& taken) {
        if (rest_.empty() || rest_[0] < first || rest_[0] > last) {
            return false;
        }
        taken = rest_.substr(0, 1);
        rest_.remove_prefix(1);
        return true;
    }
    // One or more decimal digits.
    bool number(std::string_view& taken) {
        std::size_t n = 0;
        while (n < rest_.size() && rest_[n] >= '0' && rest_[n] <= '9') {
            ++n;
        }
        taken = rest_.substr(0, n);
        rest_.remove_prefix(n);
        return n > 0;
    }
    bool done() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

std::string str(std::string_view s) {
    return std::string(s);
}

std::string withoutLeadingZeros(std::string_view digits) {
    const auto first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? "0" : str(digits.substr(first));
}

// The analog range code: 1 to 6 alone, or two digits "ab" for a*1000 to (a+b)*1000.
std::string analogSpan(std::string_view digits) {
    const auto code = withoutLeadingZeros(digits);
    if (code.size() == 1 && code[0] >= '1' && code[0] <= '6') {
        return "1 to " + code + "000";
    }
    if (code.size() == 2) {
        const int a = code[0] - '0';
        const int b = code[1] - '0';
        if (a >= 1 && a <= 5 && b >= 1 && b <= 6 - a) {
            return std::to_string(a * 1000) + " to " + std::to_string((a + b) * 1000);
        }
    }
    return "";
}

// Tenths of a second as exact decimal text, however many digits: "15" -> "1.5", "20" -> "2".
std::string tenthsAsSeconds(std::string_view digits) {
    const auto whole = digits.substr(0, digits.size() - 1);
    const char tenth = digits.back();
    const auto seconds = whole.empty() ? "0" : withoutLeadingZeros(whole);
    return tenth == '0' ? seconds : seconds + "." + tenth;
}

// Each form reads a whole word or says nothing.
std::optional<std::string> motorNumber(std::string_view text, std::string_view head,
                                       std::string_view middle,
                                       std::string (*say)(std::string_view m, std::string_view n)) {
    Word w(text);
    std::string_view m;
    std::string_view n;
    if (w.literal(head) && w.digit('1', '4', m) && w.literal(middle) && w.number(n) && w.done()) {
        return say(m, n);
    }
    return std::nullopt;
}

std::optional<std::string> motorForms(std::string_view text) {
    using Say = std::string (*)(std::string_view, std::string_view);
    const struct {
        const char* head;
        const char* middle;
        Say say;
    } forms[] = {
        {"S", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " speed " + str(n) + " steps/sec";
         }},
        {"S", "M-",
         [](std::string_view m, std::string_view n) {
             const auto span = analogSpan(n);
             return span.empty() ? "Motor " + str(m) + " analog speed, unknown range " + str(n)
                                 : "Motor " + str(m) + " analog speed " + span + " steps/sec";
         }},
        {"I", "M",
         [](std::string_view m, std::string_view n) {
             return n == "0" ? "Motor " + str(m) + " run to the + limit"
                             : "Motor " + str(m) + " index +" + str(n) + " steps";
         }},
        {"I", "M-",
         [](std::string_view m, std::string_view n) {
             return n == "0" ? "Motor " + str(m) + " run to the - limit"
                             : "Motor " + str(m) + " index -" + str(n) + " steps";
         }},
        {"IA", "M-",
         [](std::string_view m, std::string_view n) {
             return n == "0"
                        ? "Motor " + str(m) + " make the present position absolute zero"
                        : "Motor " + str(m) + " move to absolute position -" + str(n) + " steps";
         }},
        {"IA", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " move to absolute position " + str(n) + " steps";
         }},
        {"setP", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " output a pulse every " + str(n) + " steps";
         }},
        {"setM", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " motor setting " + str(n);
         }},
        {"setL", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " limit setting " + str(n);
         }},
        {"setj", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " primary joystick speed " + str(n) + " steps/sec";
         }},
        {"setJ", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " secondary joystick speed " + str(n) + " steps/sec";
         }},
        {"setjA", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " primary analog joystick setting " + str(n);
         }},
        {"setJA", "M",
         [](std::string_view m, std::string_view n) {
             return "Motor " + str(m) + " secondary analog joystick setting " + str(n);
         }},
    };
    for (const auto& f : forms) {
        if (auto said = motorNumber(text, f.head, f.middle, f.say)) {
            return said;
        }
    }
    return std::nullopt;
}

std::optional<std::string> numberForms(std::string_view text) {
    using Say = std::string (*)(std::string_view);
    const struct {
        const char* head;
        Say say;
    } forms[] = {
        {"P", [](std::string_view n) { return "Pause " + tenthsAsSeconds(n) + " seconds"; }},
        {"LA", [](std::string_view n) { return "Repeat " + str(n) + " times"; }},
        {"setDM", [](std::string_view n) { return "Set the operating mode word to " + str(n); }},
        {"setI",
         [](std::string_view n) { return "Set the multi-function input word to " + str(n); }},
        {"setDA",
         [](std::string_view n) { return "Set the analog joystick dead band to " + str(n); }},
        {"setPA", [](std::string_view n) { return "Set the output pulse width to " + str(n); }},
    };
    for (const auto& f : forms) {
        Word w(text);
        std::string_view n;
        if (w.literal(f.head) && w.number(n) && w.done()) {
            return f.say(n);
        }
    }
    return std::nullopt;
}

std::optional<std::string> programForms(std::string_view text) {
    std::string_view p;
    if (Word w(text); w.literal("PM-") && w.digit('0', '4', p) && w.done()) {
        return "The commands below belong to program " + str(p);
    }
    if (Word w(text); w.literal("PM") && w.digit('0', '4', p) && w.done()) {
        return "Select program " + str(p);
    }
    return std::nullopt;
}

std::optional<std::string> readForms(std::string_view text) {
    const struct {
        const char* word;
        const char* what;
    } settings[] = {
        {"getjA", "primary analog joystick setting"},
        {"getJA", "secondary analog joystick setting"},
        {"getM", "motor setting"},
        {"getL", "limit setting"},
        {"getP", "output pulse setting"},
        {"getj", "primary joystick speed"},
        {"getJ", "secondary joystick speed"},
    };
    for (const auto& s : settings) {
        Word w(text);
        std::string_view m;
        if (w.literal(s.word) && w.digit('1', '4', m) && w.literal("M") && w.done()) {
            return "Read the " + std::string(s.what) + " of motor " + str(m);
        }
    }
    return std::nullopt;
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
    for (const auto form : {motorForms, numberForms, programForms, readForms}) {
        if (auto said = form(command)) {
            return *said;
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
