#include "sim/KdxLanguage.h"

#include <array>
#include <cstdlib>

#include "sim/ItemText.h"

namespace korval::sim {

namespace {

using Settings = SettingsStore::Values;

std::string line(long v) {
    return std::to_string(v) + "\r";
}

// The words the driver adds to the language for its own needs.
bool driverWord(const std::string& text) {
    return text == "V" || text == "D" || text == "N" || text[0] == 'X' || text[0] == 'H';
}

// The settings kept for each axis, by the word that reads or sets them.
struct PerAxis {
    const char* get;
    const char* set;
    std::array<long, 4> Settings::*field;
    long low, high;
};

constexpr PerAxis PerAxisSettings[] = {
    {"getM", "setM", &Settings::motor, 0, 6},          {"getL", "setL", &Settings::limit, -2, 2},
    {"getP", "setP", &Settings::pulseEvery, 0, 65535}, {"getjA", "setjA", &Settings::jogA, 0, 24},
    {"getJA", "setJA", &Settings::jog2A, 0, 24},       {"getj", "setj", &Settings::jog, 0, 6000},
    {"getJ", "setJ", &Settings::jog2, 0, 6000},
};

// The settings kept once for the controller.
struct Word {
    const char* get;
    const char* set;
    int Settings::*field;
    long high;
};

constexpr Word WordSettings[] = {
    {"getDM", "setDM", &Settings::dm, 255},
    {"getDA", "setDA", &Settings::deadBand, 255},
    {"getPA", "setPA", &Settings::pulseWidth, 65535},
    {"getI", "setI", &Settings::multi, 255},
};

} // namespace

KdxLanguage::KdxLanguage(const SimOptions& options, const BenchInputs& bench,
                         SettingsStore& settings, KdxFraming& out, ProgramStore& programs,
                         KdxMotion& motion, ProgramRunner& runner)
    : options_(options), bench_(bench), settings_(settings), out_(out), programs_(programs),
      motion_(motion), runner_(runner) {}

void KdxLanguage::hear(const KdxFraming::Item& heard) {
    if (options_.languageOnly && driverWord(heard.text)) {
        return;
    }
    if (heard.immediate) {
        immediate(heard.text[0]);
    } else {
        item(heard.text);
    }
}

std::string KdxLanguage::statusCode() const {
    if (runner_.fault() != SimFault::None) {
        return FaultStatusCode(runner_.fault());
    }
    if (motion_.anyJogging()) {
        return "b";
    }
    if (runner_.active() || motion_.anyMoving()) {
        return online_ ? "B" : "L";
    }
    return online_ ? "R" : "J";
}

bool KdxLanguage::refuseAxis(int axis) {
    if (axis < 1 || axis > 4) {
        runner_.raise(SimFault::InvalidMotor);
        return true;
    }
    switch (StateOfAxis(options_, axis)) {
    case AxisState::Present:
        return false;
    case AxisState::OneMotor:
        out_.say("J");
        return true;
    case AxisState::NoController:
        out_.say(FaultStatusCode(SimFault::Bus));
        return true;
    case AxisState::Silent:
        break;
    }
    return true; // silent: no answer at all
}

// ---- immediate commands ------------------------------------------------------------------

void KdxLanguage::immediate(char c) {
    std::string answer;
    switch (c) {
    case 'C':
        programs_.clear();
        break;
    case 'D':
        runner_.decelerateStop();
        break;
    case 'E':
        online_ = true;
        out_.setEcho(true);
        break;
    case 'F':
    case 'G':
        online_ = true;
        out_.setEcho(false);
        break;
    case 'Q':
        online_ = false;
        break;
    case 'K':
        runner_.kill();
        break;
    case 'R':
        runner_.start(programs_.current());
        break;
    case 'V':
        answer = statusCode();
        break;
    case 'O':
        answer = line(options_.overTravel);
        break;
    case '(':
    case ')':
        store(
            {c == '(' ? ProgramOp::BracketOpen : ProgramOp::BracketClose, 0, 0, std::string(1, c)});
        break;
    case '?': {
        int active = 0;
        for (int axis = 1; axis <= 4; ++axis) {
            active |= (motion_.limitActive(axis, LimitSide::Minus) ? 1 : 0) << ((axis - 1) * 2);
            active |= (motion_.limitActive(axis, LimitSide::Plus) ? 1 : 0) << ((axis - 1) * 2 + 1);
        }
        answer = std::string(1, static_cast<char>(~active & 0xFF));
        break;
    }
    case '~': {
        const int active = bench_.jogButtons | (bench_.inputs << 4);
        answer = std::string(1, static_cast<char>(~active & 0xFF));
        break;
    }
    case '$':
        if (std::strtod(options_.firmware.c_str(), nullptr) >= 1.22 - 1e-9) {
            answer = std::string(1, static_cast<char>(runner_.outputs()));
        }
        break;
    case '@':
        answer = line(bench_.analog);
        break;
    default:
        break;
    }
    out_.say(answer);
}

// ---- items --------------------------------------------------------------------------------

void KdxLanguage::item(const std::string& text) {
    long v = 0;
    if (text == "rsm") {
        settings_.save();
        out_.say("^");
        return;
    }
    if (query(text)) {
        return;
    }
    if (text.size() == 3 && text.compare(0, 2, "PM") == 0 && ReadNumber(text.substr(2), 0, 4, v)) {
        programs_.select(static_cast<int>(v));
        return;
    }
    if (text.size() == 4 && text.compare(0, 3, "PM-") == 0 && ReadNumber(text.substr(3), 0, 4, v)) {
        programs_.select(static_cast<int>(v));
        programs_.clear();
        return;
    }
    if (text.compare(0, 3, "set") == 0) {
        setting(text);
        return;
    }
    if (text[0] == 'H') {
        jog(text);
    } else {
        programItem(text);
    }
}

bool KdxLanguage::query(const std::string& text) {
    long v = 0;
    if (text == "lst") {
        out_.say(programs_.listing());
    } else if (text == "PM" || text == "PMA") {
        // The associate of a program is the one an input jump would return to; none is kept
        // apart from the program itself.
        out_.say(line(programs_.current()));
    } else if (text == "N") {
        out_.say(line(programs_.freeMemory(programs_.current())));
    } else if (text.size() >= 2 && text[0] == 'X' && ReadNumber(text.substr(1), 0, 99, v)) {
        if (!refuseAxis(static_cast<int>(v))) {
            out_.say(line(motion_.position(static_cast<int>(v))));
        }
    } else if (text == "getD0") {
        out_.say(options_.firmware + "\r");
    } else if (text == "getD1") {
        out_.say(options_.date + "\r");
    } else if (text == "getD2") {
        out_.say(line(options_.mode));
    } else {
        for (const auto& w : WordSettings) {
            if (text == w.get) {
                out_.say(line(settings_.live.*w.field));
                return true;
            }
        }
        int motor = 0;
        std::string arg;
        for (const auto& s : PerAxisSettings) {
            if (ReadMotorItem(text, s.get, motor, arg) && arg.empty()) {
                if (!refuseAxis(motor)) {
                    out_.say(line((settings_.live.*s.field)[motor - 1]));
                }
                return true;
            }
        }
        return false;
    }
    return true;
}

void KdxLanguage::setting(const std::string& text) {
    long v = 0;
    for (const auto& w : WordSettings) {
        const std::string_view word = w.set;
        if (text.compare(0, word.size(), word) == 0 && text.size() > word.size() &&
            IsDigit(text[word.size()])) {
            if (!ReadNumber(text.substr(word.size()), 0, w.high, v)) {
                return;
            }
            settings_.live.*w.field = static_cast<int>(v);
            return;
        }
    }
    int motor = 0;
    std::string arg;
    for (const auto& s : PerAxisSettings) {
        if (ReadMotorItem(text, s.set, motor, arg)) {
            if (refuseAxis(motor)) {
                return;
            }
            if (!ReadSignedNumber(arg, s.low, s.high, v)) {
                return;
            }
            (settings_.live.*s.field)[motor - 1] = v;
            return;
        }
    }
}

void KdxLanguage::jog(const std::string& text) {
    int motor = 0;
    std::string arg;
    if (!ReadMotorItem(text, "H", motor, arg) || motor < 1 || motor > 4 ||
        !ArrangementHasAxis(options_.arrangement, motor) || runner_.fault() != SimFault::None) {
        return;
    }
    const bool analog = !arg.empty() && arg[0] == 'A';
    if (analog) {
        arg.erase(0, 1);
    }
    const int dir = !arg.empty() && arg[0] == '-' ? -1 : 1;
    long v = 0;
    if (!ReadNumber(dir < 0 ? arg.substr(1) : arg, 1, 6000, v) ||
        (analog && !ValidAnalogRange(v))) {
        return;
    }
    if (analog) {
        motion_.setAnalogRange(motor, static_cast<int>(v));
    } else {
        motion_.setSpeed(motor, static_cast<double>(v));
    }
    motion_.runToLimit(motor, dir, true);
}

// ---- program commands ---------------------------------------------------------------------

void KdxLanguage::programItem(const std::string& text) {
    ProgramCommand cmd;
    switch (ReadProgramCommand(text, cmd)) {
    case CommandReading::Valid:
        if (cmd.motor == 0 || !refuseAxis(cmd.motor)) {
            store(cmd);
        }
        break;
    case CommandReading::BadValue:
        // Reported with the memory code, but held by no error status.
        out_.say(FaultStreamCode(SimFault::MemoryFull));
        break;
    case CommandReading::BadMotor:
        runner_.raise(SimFault::InvalidMotor);
        break;
    case CommandReading::NotACommand:
        break; // a word the controller does not know
    }
}

void KdxLanguage::store(const ProgramCommand& cmd) {
    if (const SimFault fault = programs_.add(cmd); fault != SimFault::None) {
        runner_.raise(fault);
    }
}

} // namespace korval::sim
