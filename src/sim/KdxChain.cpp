#include "sim/KdxChain.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace korval::sim {

namespace {

constexpr char Lead = '\xCB';
constexpr double Acceleration = 40000; // steps per second per second: a short ramp
constexpr double CreepSpeed = 50;      // the slowest a ramp goes before it reaches its target
constexpr long MaxPosition = 16777215;
constexpr const char* Immediate = "CDEFGKOQRV()?~$@";

bool digit(char c) {
    return c >= '0' && c <= '9';
}

// "12" -> 12 within [low, high]; anything else fails.
bool number(std::string_view s, long low, long high, long& out) {
    if (s.empty() || s.size() > 9 || !std::all_of(s.begin(), s.end(), digit)) {
        return false;
    }
    long v = 0;
    std::from_chars(s.data(), s.data() + s.size(), v);
    if (v < low || v > high) {
        return false;
    }
    out = v;
    return true;
}

// As number(), with an optional leading "-".
bool signedNumber(std::string_view s, long low, long high, long& out) {
    const bool negative = !s.empty() && s[0] == '-';
    long v = 0;
    if (!number(negative ? s.substr(1) : s, 0, std::max(std::labs(low), high), v)) {
        return false;
    }
    v = negative ? -v : v;
    if (v < low || v > high) {
        return false;
    }
    out = v;
    return true;
}

bool validAnalogRange(long r) {
    const long a = r / 10;
    const long b = r % 10;
    return (r >= 1 && r <= 6) || (a >= 1 && a <= 5 && b >= 1 && b <= 6 - a);
}

// The words whose number is a motor followed by "M".
constexpr const char* MotorWords[] = {"S",    "I",    "IA",    "H",     "getM", "getL", "getP",
                                      "getj", "getJ", "getjA", "getJA", "setM", "setL", "setP",
                                      "setj", "setJ", "setjA", "setJA", "getX"};

std::string line(long v) {
    return std::to_string(v) + "\r";
}

} // namespace

KdxChain::KdxChain(SimOptions options) : options_(std::move(options)) {
    live_.motor.fill(0);
    live_.limit.fill(1);
    live_.pulseEvery.fill(1);
    live_.jog.fill(1000);
    live_.jog2.fill(2000);
    live_.jogA.fill(0);
    live_.jog2A.fill(0);
    stored_ = live_;
    echo_ = options_.echo;
    analog_ = options_.analog;
}

bool KdxChain::hasAxis(int axis) const {
    return ArrangementHasAxis(options_.arrangement, axis);
}

int KdxChain::axisState(int axis) const {
    if (options_.silentAxes & (1 << (axis - 1))) {
        return 3;
    }
    if (hasAxis(axis)) {
        return 0;
    }
    return ArrangementHasController(options_.arrangement, (axis + 1) / 2) ? 1 : 2;
}

// ---- input ------------------------------------------------------------------------------

void KdxChain::receive(std::string_view bytes) {
    if (silent_) {
        return;
    }
    for (const char c : bytes) {
        handleChar(c);
    }
}

std::string KdxChain::takeOutput() {
    std::string out;
    out.swap(out_);
    return out;
}

void KdxChain::say(const std::string& text) {
    // A full transmit buffer loses what does not fit, as a real one would.
    if (out_.size() + text.size() <= MaxOutput) {
        out_ += text;
    }
}

bool KdxChain::continues(char c) const {
    const auto first = std::find_if(buf_.begin(), buf_.end(), digit);
    if (first == buf_.end()) {
        return true; // still spelling a word: it ends at a separator
    }
    const char last = buf_.back();
    if (digit(c)) {
        return true;
    }
    if (c == 'M') {
        if (!digit(last) || std::find(first, buf_.end(), 'M') != buf_.end()) {
            return false;
        }
        const std::string prefix(buf_.begin(), first);
        return std::any_of(std::begin(MotorWords), std::end(MotorWords),
                           [&](const char* w) { return prefix == w; });
    }
    if (c == 'A') {
        return last == 'M' && buf_.rfind("MA") == std::string::npos;
    }
    if (c == '-') {
        return last == 'M' || (last == 'A' && buf_.size() > 1 && buf_[buf_.size() - 2] == 'M');
    }
    return false;
}

void KdxChain::handleChar(char c) {
    // A private item is never echoed, nor the separator that closes it; "E" echoes itself as
    // it turns echo on.
    const bool separator = c == ',' || c == '\r';
    const bool privateByte = priv_ || c == '#' || (separator && privTail_);
    privTail_ = false;
    if ((echo_ || (c == 'E' && buf_.empty())) && !privateByte) {
        say(std::string(1, c));
    }
    if (inComment_) {
        if (c == '\r' || c == '\n') {
            inComment_ = false;
        }
        return;
    }
    if (c == '\n' || c == '\t') {
        return;
    }
    if (c == ';') {
        finishItem();
        inComment_ = true;
        return;
    }
    if (c == ',' || c == '\r') {
        finishItem();
        return;
    }
    if (skipping_) {
        return;
    }
    if (!buf_.empty() && !continues(c)) {
        finishItem();
    }
    if (buf_.empty()) {
        if (c == '#') {
            priv_ = true;
            return;
        }
        if (std::strchr(Immediate, c) != nullptr && c != 0) {
            const bool priv = priv_;
            priv_ = false;
            privTail_ = priv;
            immediate(c, priv);
            return;
        }
    }
    buf_ += c;
    if (buf_.size() > MaxItem) {
        // An item this long is nothing the controller knows: drop it whole.
        buf_.clear();
        skipping_ = true;
        return;
    }
    if (buf_ == "rsm" || buf_ == "lst") {
        finishItem();
    }
}

void KdxChain::finishItem() {
    if (!skipping_ && !buf_.empty()) {
        const std::string text = buf_;
        buf_.clear();
        privTail_ = priv_;
        item(text, priv_);
    }
    buf_.clear();
    skipping_ = false;
    priv_ = false;
}

void KdxChain::reply(const std::string& text, bool priv) {
    say(priv ? "{" + text + "}" : text);
}

// ---- immediate commands and queries ------------------------------------------------------

std::string KdxChain::statusCode() const {
    if (error_ != 0) {
        return std::string(1, Lead) + error_;
    }
    bool jogging = false;
    bool busy = run_.active;
    for (const auto& m : motors_) {
        jogging = jogging || (m.moving && m.jogging);
        busy = busy || m.moving;
    }
    if (jogging) {
        return "b";
    }
    if (busy) {
        return online_ ? "B" : "L";
    }
    return online_ ? "R" : "J";
}

void KdxChain::immediate(char c, bool priv) {
    std::string answer;
    switch (c) {
    case 'C':
        programs_[current_].clear();
        used_[current_] = 0;
        break;
    case 'D':
        decelStop();
        break;
    case 'E':
        online_ = true;
        echo_ = true;
        break;
    case 'F':
    case 'G':
        online_ = true;
        echo_ = false;
        break;
    case 'Q':
        online_ = false;
        break;
    case 'K':
        kill();
        break;
    case 'R':
        startRun(current_);
        break;
    case 'V':
        answer = statusCode();
        break;
    case 'O':
        answer = line(options_.overTravel);
        break;
    case '(':
    case ')': {
        Command cmd;
        cmd.op = c;
        cmd.text = std::string(1, c);
        store(cmd);
        break;
    }
    case '?': {
        int active = 0;
        for (int axis = 1; axis <= 4; ++axis) {
            active |= (limitActive(axis, 0) ? 1 : 0) << ((axis - 1) * 2);
            active |= (limitActive(axis, 1) ? 1 : 0) << ((axis - 1) * 2 + 1);
        }
        answer = std::string(1, static_cast<char>(~active & 0xFF));
        break;
    }
    case '~': {
        const int active = jogButtons_ | (inputs_ << 4);
        answer = std::string(1, static_cast<char>(~active & 0xFF));
        break;
    }
    case '$':
        if (std::strtod(options_.firmware.c_str(), nullptr) >= 1.22 - 1e-9) {
            answer = std::string(1, static_cast<char>(outputs_));
        }
        break;
    case '@':
        answer = line(analog_);
        break;
    default:
        break;
    }
    if (priv || !answer.empty()) {
        reply(answer, priv);
    }
}

bool KdxChain::motorItem(const std::string& text, const char* word, int& motor,
                         std::string& arg) const {
    const std::size_t n = std::strlen(word);
    if (text.size() < n + 2 || text.compare(0, n, word) != 0 || !digit(text[n])) {
        return false;
    }
    const auto m = text.find('M', n);
    if (m == std::string::npos) {
        return false;
    }
    long v = 0;
    if (!number(std::string_view(text).substr(n, m - n), 0, 99, v)) {
        return false;
    }
    motor = static_cast<int>(v);
    arg = text.substr(m + 1);
    return true;
}

bool KdxChain::refuseAxis(int axis, bool priv) {
    if (axis < 1 || axis > 4) {
        raise('I');
        if (priv) {
            reply("", true);
        }
        return true;
    }
    switch (axisState(axis)) {
    case 0:
        return false;
    case 1:
        reply("J", priv);
        return true;
    case 2:
        reply(std::string(1, Lead) + "B", priv);
        return true;
    default:
        return true; // silent: not even a frame
    }
}

std::string KdxChain::listing(int program) const {
    std::string text;
    for (const auto& cmd : programs_[program]) {
        text += cmd.text + ",";
    }
    return text + "\r";
}

void KdxChain::item(const std::string& text, bool priv) {
    long v = 0;
    int motor = 0;
    std::string arg;
    if (text == "rsm") {
        stored_ = live_;
        reply("^", priv);
        return;
    }
    if (text == "lst") {
        reply(listing(current_), priv);
        return;
    }
    if (text == "PM") {
        reply(line(current_), priv);
        return;
    }
    if (text == "PMA") {
        // The associate of a program is the one an input jump would return to; none is kept
        // apart from the program itself.
        reply(line(current_), priv);
        return;
    }
    if (text == "N") {
        reply(line(freeMemory(current_)), priv);
        return;
    }
    if (text.size() == 3 && text.compare(0, 2, "PM") == 0 && number(text.substr(2), 0, 4, v)) {
        current_ = static_cast<int>(v);
        if (priv) {
            reply("", true);
        }
        return;
    }
    if (text.size() == 4 && text.compare(0, 3, "PM-") == 0 && number(text.substr(3), 0, 4, v)) {
        current_ = static_cast<int>(v);
        programs_[current_].clear();
        used_[current_] = 0;
        if (priv) {
            reply("", true);
        }
        return;
    }
    if (text.size() >= 2 && text[0] == 'X' && number(text.substr(1), 0, 99, v)) {
        if (!refuseAxis(static_cast<int>(v), priv)) {
            reply(line(position(static_cast<int>(v))), priv);
        }
        return;
    }
    if (text == "getD0") {
        reply(options_.firmware + "\r", priv);
        return;
    }
    if (text == "getD1") {
        reply(options_.date + "\r", priv);
        return;
    }
    if (text == "getD2") {
        reply(line(options_.mode), priv);
        return;
    }
    if (text == "getDM" || text == "getI" || text == "getDA" || text == "getPA") {
        const long value = text == "getDM"   ? live_.dm
                           : text == "getI"  ? live_.multi
                           : text == "getDA" ? live_.deadBand
                                             : live_.pulseWidth;
        reply(line(value), priv);
        return;
    }
    struct PerAxis {
        const char* word;
        std::array<long, 4> Settings::*field;
    };
    static constexpr PerAxis Gets[] = {
        {"getM", &Settings::motor}, {"getL", &Settings::limit},  {"getP", &Settings::pulseEvery},
        {"getjA", &Settings::jogA}, {"getJA", &Settings::jog2A}, {"getj", &Settings::jog},
        {"getJ", &Settings::jog2},
    };
    for (const auto& g : Gets) {
        if (motorItem(text, g.word, motor, arg) && arg.empty()) {
            if (!refuseAxis(motor, priv)) {
                reply(line((live_.*g.field)[motor - 1]), priv);
            }
            return;
        }
    }
    if (text.compare(0, 3, "set") == 0) {
        if (!setting(text, priv) && priv) {
            reply("", true);
        }
        return;
    }
    if (text[0] == 'H') {
        jog(text);
        if (priv) {
            reply("", true);
        }
        return;
    }
    Command cmd;
    switch (programCommand(text, cmd)) {
    case 1:
        if (cmd.motor == 0 || !refuseAxis(cmd.motor, false)) {
            store(cmd);
        }
        break;
    case 2:
        say(std::string(1, Lead) + "M");
        break;
    case 3:
        raise('I');
        break;
    default:
        break; // a word the controller does not know
    }
    if (priv) {
        reply("", true);
    }
}

// Returns true when the item was a setting it could act on (a refusal has answered already).
bool KdxChain::setting(const std::string& text, bool priv) {
    long v = 0;
    struct Word {
        const char* word;
        int Settings::*field;
        long high;
    };
    static constexpr Word Words[] = {{"setDM", &Settings::dm, 255},
                                     {"setDA", &Settings::deadBand, 255},
                                     {"setPA", &Settings::pulseWidth, 65535},
                                     {"setI", &Settings::multi, 255}};
    for (const auto& w : Words) {
        const std::size_t n = std::strlen(w.word);
        if (text.compare(0, n, w.word) == 0 && text.size() > n && digit(text[n])) {
            if (number(text.substr(n), 0, w.high, v)) {
                live_.*w.field = static_cast<int>(v);
                if (priv) {
                    reply("", true);
                }
                return true;
            }
            return false;
        }
    }
    struct PerAxis {
        const char* word;
        std::array<long, 4> Settings::*field;
        long low, high;
    };
    static constexpr PerAxis Sets[] = {
        {"setM", &Settings::motor, 0, 65535},      {"setL", &Settings::limit, -2, 2},
        {"setP", &Settings::pulseEvery, 0, 65535}, {"setjA", &Settings::jogA, 0, 24},
        {"setJA", &Settings::jog2A, 0, 24},        {"setj", &Settings::jog, 0, 6000},
        {"setJ", &Settings::jog2, 0, 6000},
    };
    int motor = 0;
    std::string arg;
    for (const auto& s : Sets) {
        if (motorItem(text, s.word, motor, arg)) {
            if (refuseAxis(motor, priv)) {
                return true;
            }
            if (!signedNumber(arg, s.low, s.high, v)) {
                return false;
            }
            (live_.*s.field)[motor - 1] = v;
            if (priv) {
                reply("", true);
            }
            return true;
        }
    }
    return false;
}

void KdxChain::jog(const std::string& text) {
    int motor = 0;
    std::string arg;
    if (!motorItem(text, "H", motor, arg) || motor < 1 || motor > 4 || !hasAxis(motor) ||
        error_ != 0) {
        return;
    }
    auto& m = motors_[motor - 1];
    const bool analog = !arg.empty() && arg[0] == 'A';
    if (analog) {
        arg.erase(0, 1);
    }
    const int dir = !arg.empty() && arg[0] == '-' ? -1 : 1;
    long v = 0;
    if (!number(dir < 0 ? arg.substr(1) : arg, 1, 6000, v) || (analog && !validAnalogRange(v))) {
        return;
    }
    m.analogRange = analog ? static_cast<int>(v) : 0;
    if (!analog) {
        m.speed = static_cast<double>(v);
    }
    startMove(motor, 0, true, dir, true);
}

// ---- programs -----------------------------------------------------------------------------

int KdxChain::cost(const Command& cmd) {
    switch (cmd.op) {
    case 'S':
    case 'A':
    case 'I':
    case 'T':
        return 4;
    case 'P':
    case 'L':
    case 'H':
    case 'Z':
        return 3;
    default:
        return 1;
    }
}

int KdxChain::freeMemory(int program) const {
    return ProgramMemory - used_[program];
}

int KdxChain::programCommand(const std::string& text, Command& cmd) const {
    long v = 0;
    int motor = 0;
    std::string arg;
    cmd = Command{};
    cmd.text = text;
    if (text == "LM0") {
        cmd.op = 'M';
        return 1;
    }
    if (text == "L0") {
        cmd.op = 'W';
        return 1;
    }
    if (text.compare(0, 2, "LA") == 0 && text.size() > 2) {
        cmd.op = 'L';
        if (!number(text.substr(2), 1, 65535, cmd.value)) {
            return 2;
        }
        return 1;
    }
    if (text[0] == 'P' && text.size() > 1 && digit(text[1])) {
        cmd.op = 'P';
        return number(text.substr(1), 1, 65535, cmd.value) ? 1 : 2;
    }
    if (text[0] == 'U' && text.size() > 1 && digit(text[1])) {
        cmd.op = 'U';
        if (!number(text.substr(1), 0, 99, v)) {
            return 2;
        }
        static constexpr long Known[] = {0, 90, 4, 5, 14, 15, 24, 25, 34, 35};
        cmd.value = v;
        return std::find(std::begin(Known), std::end(Known), v) != std::end(Known) ? 1 : 2;
    }
    const bool absolute = motorItem(text, "IA", motor, arg);
    if (absolute || motorItem(text, "I", motor, arg) || motorItem(text, "S", motor, arg)) {
        cmd.motor = motor;
        if (motor < 1 || motor > 4) {
            return 3;
        }
        const bool negative = !arg.empty() && arg[0] == '-';
        if (!number(negative ? arg.substr(1) : arg, 0, MaxPosition, v)) {
            return 2;
        }
        if (text[0] == 'S') {
            if (negative) {
                cmd.op = 'A';
                cmd.value = v;
                return validAnalogRange(v) ? 1 : 2;
            }
            cmd.op = 'S';
            cmd.value = v;
            return v <= 6000 ? 1 : 2;
        }
        if (absolute) {
            cmd.op = negative && v == 0 ? 'Z' : 'T';
            cmd.value = negative ? -v : v;
            return 1;
        }
        cmd.op = v == 0 ? 'H' : 'I';
        cmd.value = v == 0 ? (negative ? -1 : 1) : (negative ? -v : v);
        return 1;
    }
    return 0;
}

void KdxChain::store(const Command& cmd) {
    auto& program = programs_[current_];
    if (cmd.op == 'L' || cmd.op == 'W') {
        // A second loop over the part another loop already repeats is a loop inside a loop.
        for (auto it = program.rbegin(); it != program.rend() && it->op != 'M'; ++it) {
            if (it->op == 'L' || it->op == 'W') {
                raise('N');
                return;
            }
        }
    }
    if (used_[current_] + cost(cmd) > ProgramMemory) {
        raise('M');
        return;
    }
    used_[current_] += cost(cmd);
    program.push_back(cmd);
}

// ---- errors, stop, kill -----------------------------------------------------------------

void KdxChain::raise(char code) {
    // Invalid motor and nested loop share the stream code of a full memory; the status tells
    // them apart.
    const char stream = code == 'N' || code == 'I' ? 'M' : code;
    if (error_ == 0) {
        say(std::string(1, Lead) + stream); // once: the status holds it until K
        error_ = code;
    }
    run_ = Run{};
    for (auto& m : motors_) {
        m.moving = false;
        m.vel = 0;
    }
}

bool KdxChain::injectError(char code) {
    if (std::strchr("BMNJCFEUIS", code) == nullptr || code == 0) {
        return false;
    }
    raise(code);
    return true;
}

void KdxChain::kill() {
    run_ = Run{};
    for (auto& m : motors_) {
        m.moving = false;
        m.jogging = false;
        m.vel = 0;
    }
    error_ = 0;
}

void KdxChain::decelStop() {
    const bool wasRunning = run_.active;
    run_ = Run{};
    for (auto& m : motors_) {
        if (m.moving) {
            m.decelerating = true;
        }
    }
    if (wasRunning) {
        say("^");
    }
}

// ---- running ------------------------------------------------------------------------------

void KdxChain::startRun(int program) {
    if (error_ != 0 || run_.active) {
        return;
    }
    if (programs_[program].empty()) {
        say("^");
        return;
    }
    run_ = Run{};
    run_.active = true;
    run_.program = program;
    run_.code = programs_[program];
    stepRun();
}

void KdxChain::endRun() {
    run_ = Run{};
    say("^");
}

void KdxChain::stepRun() {
    // Bounded so that a loop with nothing in it that takes time cannot hold the clock.
    for (int guard = 0; guard < 1000 && run_.active; ++guard) {
        if (run_.waitMotion != 0) {
            for (int axis = 1; axis <= 4; ++axis) {
                if ((run_.waitMotion & (1 << (axis - 1))) && !motors_[axis - 1].moving) {
                    run_.waitMotion &= ~(1 << (axis - 1));
                }
            }
            if (run_.waitMotion != 0) {
                return;
            }
        }
        if (run_.pauseUntil >= 0) {
            if (now_ < run_.pauseUntil) {
                return;
            }
            run_.pauseUntil = -1;
        }
        if (run_.waitUser == 90) {
            if (!runPressed_) {
                return;
            }
            runPressed_ = false;
            run_.waitUser = -1;
        } else if (run_.waitUser == 0) {
            if (!(inputs_ & 1)) {
                return;
            }
            run_.waitUser = -1;
        }
        if (run_.pc >= run_.code.size()) {
            endRun();
            return;
        }
        const Command cmd = run_.code[run_.pc++];
        execute(cmd);
    }
}

void KdxChain::execute(const Command& cmd) {
    Motor* m = cmd.motor >= 1 && cmd.motor <= 4 ? &motors_[cmd.motor - 1] : nullptr;
    switch (cmd.op) {
    case 'S':
        m->speed = static_cast<double>(cmd.value);
        m->analogRange = 0;
        break;
    case 'A':
        m->analogRange = static_cast<int>(cmd.value);
        break;
    case 'I':
    case 'T':
    case 'H': {
        if (cmd.op == 'H' && !limitsWired(cmd.motor) && live_.limit[cmd.motor - 1] <= 0) {
            raise('C'); // no switch would ever end it
            return;
        }
        const double here = m->pos - m->offset;
        const double target = cmd.op == 'I'   ? here + static_cast<double>(cmd.value)
                              : cmd.op == 'T' ? static_cast<double>(cmd.value)
                                              : 0;
        const int dir = cmd.op == 'H' ? static_cast<int>(cmd.value) : (target >= here ? 1 : -1);
        startMove(cmd.motor, target, cmd.op == 'H', dir, false);
        if (!run_.inBracket) {
            run_.waitMotion |= 1 << (cmd.motor - 1);
        }
        break;
    }
    case 'Z':
        m->offset = m->pos;
        break;
    case '(':
        run_.inBracket = true;
        break;
    case ')':
        run_.inBracket = false;
        for (int axis = 1; axis <= 4; ++axis) {
            if (motors_[axis - 1].moving) {
                run_.waitMotion |= 1 << (axis - 1);
            }
        }
        break;
    case 'P':
        run_.pauseUntil = now_ + cmd.value * 100000;
        break;
    case 'U':
        if (cmd.value == 90) {
            runPressed_ = false; // only a press from now on counts
            run_.waitUser = 90;
        } else if (cmd.value == 0) {
            run_.waitUser = 0;
        } else {
            const int bit = 1 << (cmd.value / 10);
            outputs_ = cmd.value % 10 == 5 ? outputs_ | bit : outputs_ & ~bit;
        }
        break;
    case 'M':
        run_.loopStart = run_.pc;
        run_.loopCount = 0;
        break;
    case 'L':
        if (++run_.loopCount < cmd.value) {
            run_.pc = run_.loopStart;
        } else {
            run_.loopCount = 0;
        }
        break;
    case 'W':
        run_.pc = run_.loopStart;
        break;
    default:
        break;
    }
}

// ---- motion -------------------------------------------------------------------------------

bool KdxChain::limitsWired(int axis) const {
    return !(options_.unwiredLimits & (1 << (axis - 1)));
}

bool KdxChain::limitActive(int axis, int side) const {
    if (axis < 1 || axis > 4 || !hasAxis(axis)) {
        return false;
    }
    const long setting = live_.limit[axis - 1];
    if (!limitsWired(axis)) {
        // An open input is what a tripped normally-closed switch looks like.
        return setting > 0;
    }
    const auto& m = motors_[axis - 1];
    const double travel = static_cast<double>(options_.travel);
    const bool pressed = (side == 0 ? m.pos <= -travel : m.pos >= travel) || m.limitHeld[side];
    if (setting == 0) {
        return pressed; // auto-detect learns the kind of switch
    }
    // A positive setting expects normally-closed switches, a negative one normally-open.
    const bool closed = options_.normallyOpen ? pressed : !pressed;
    return setting > 0 ? !closed : closed;
}

double KdxChain::analogSpeed(int range) const {
    const int a = range >= 10 ? range / 10 : 0;
    const int b = range >= 10 ? range % 10 : range;
    const double low = a == 0 ? 1 : a * 1000.0;
    const double high = (a + b) * 1000.0;
    return low + (high - low) * analog_ / 255.0;
}

double KdxChain::moveSpeed(const Motor& m) const {
    return std::max(1.0, m.analogRange > 0 ? analogSpeed(m.analogRange) : m.speed);
}

void KdxChain::startMove(int axis, double target, bool toLimit, int dir, bool jogging) {
    auto& m = motors_[axis - 1];
    if (limitActive(axis, dir > 0 ? 1 : 0)) {
        return; // already on the switch in that direction
    }
    m.moving = true;
    m.toLimit = toLimit;
    m.jogging = jogging;
    m.dir = dir;
    m.target = target;
    m.decelerating = false;
    if (!toLimit && std::fabs(target - (m.pos - m.offset)) < 0.5) {
        m.moving = false;
    }
}

void KdxChain::tick(double dt) {
    for (int axis = 1; axis <= 4; ++axis) {
        auto& m = motors_[axis - 1];
        if (!m.moving) {
            continue;
        }
        const double speed = moveSpeed(m);
        const double here = m.pos - m.offset;
        const double remaining = m.toLimit ? 1e12 : std::fabs(m.target - here);
        const double brake = m.vel * m.vel / (2 * Acceleration);
        if (m.decelerating) {
            m.vel -= Acceleration * dt;
            if (m.vel <= 0) {
                m.vel = 0;
                m.moving = false;
                m.jogging = false;
                continue;
            }
        } else if (remaining <= brake + 0.5) {
            m.vel = std::max(std::min(CreepSpeed, speed), m.vel - Acceleration * dt);
        } else {
            m.vel = std::min(speed, m.vel + Acceleration * dt);
        }
        const double step = m.vel * dt;
        if (!m.toLimit && !m.decelerating && step >= remaining) {
            m.pos = m.target + m.offset;
            m.vel = 0;
            m.moving = false;
        } else {
            m.pos += m.dir * step;
        }
        if (limitsWired(axis)) {
            // The carriage ends at the switches whatever the controller makes of them.
            const double travel = static_cast<double>(options_.travel);
            m.pos = std::clamp(m.pos, -travel, travel);
        }
        const int side = m.dir > 0 ? 1 : 0;
        if (limitActive(axis, side)) {
            // The switch stops the motor where it stands.
            const bool expected = m.toLimit;
            m.vel = 0;
            m.moving = false;
            m.jogging = false;
            if (!expected && (options_.overTravel & 1)) {
                say("O");
            }
            if (!expected && (options_.overTravel & 2) && run_.active) {
                endRun();
            }
        }
    }
}

void KdxChain::advance(std::int64_t micros) {
    carry_ += micros;
    while (carry_ > 0) {
        const std::int64_t stepUs = std::min<std::int64_t>(carry_, 1000);
        carry_ -= stepUs;
        now_ += stepUs;
        tick(static_cast<double>(stepUs) / 1e6);
        if (run_.active) {
            stepRun();
        }
    }
}

long KdxChain::position(int axis) const {
    if (axis < 1 || axis > 4) {
        return 0;
    }
    const auto& m = motors_[axis - 1];
    return std::lround(m.pos - m.offset);
}

bool KdxChain::moving(int axis) const {
    return axis >= 1 && axis <= 4 && motors_[axis - 1].moving;
}

// ---- the bench ----------------------------------------------------------------------------

void KdxChain::setLimit(int axis, LimitSide side, bool pressed) {
    if (axis >= 1 && axis <= 4) {
        motors_[axis - 1].limitHeld[side == LimitSide::Plus ? 1 : 0] = pressed;
        tick(0);
    }
}

void KdxChain::setJogButton(int axis, LimitSide side, bool pressed) {
    if (axis < 1 || axis > 2) {
        return; // jog buttons exist for the first controller's axes only
    }
    const int bit = 1 << ((axis - 1) * 2 + (side == LimitSide::Plus ? 1 : 0));
    jogButtons_ = pressed ? jogButtons_ | bit : jogButtons_ & ~bit;
    auto& m = motors_[axis - 1];
    if (!hasAxis(axis) || run_.active || error_ != 0) {
        return;
    }
    if (pressed && live_.jog[axis - 1] > 0) {
        m.speed = static_cast<double>(live_.jog[axis - 1]);
        m.analogRange = 0;
        startMove(axis, 0, true, side == LimitSide::Plus ? 1 : -1, true);
    } else if (!pressed && m.jogging) {
        m.decelerating = true;
    }
}

void KdxChain::setInput(int input, bool on) {
    if (input < 1 || input > 4) {
        return;
    }
    const int bit = 1 << (input - 1);
    const bool was = inputs_ & bit;
    inputs_ = on ? inputs_ | bit : inputs_ & ~bit;
    if (!on || was) {
        return;
    }
    if (input == 4 && (live_.multi & 2)) {
        pressStopButton();
    } else if (input == 3 && (live_.multi & 4) && run_.active && run_.waitUser >= 0) {
        // Input 3 breaks a wait and jumps to program 3; jumping there from program 3 itself
        // could never return.
        if (run_.program == 3) {
            raise('J');
        } else {
            run_ = Run{};
            startRun(3);
        }
    }
}

void KdxChain::pressRunButton() {
    runPressed_ = true;
    if (run_.active || error_ != 0) {
        return;
    }
    if ((live_.multi & 1) || !online_) {
        if (live_.multi & 64) {
            current_ = ((inputs_ >> 1) & 3);
        }
        runPressed_ = false;
        startRun(current_);
    }
}

void KdxChain::pressStopButton() {
    if (live_.multi & 16) {
        for (auto& m : motors_) {
            m.moving = false;
            m.vel = 0;
        }
    } else {
        for (auto& m : motors_) {
            m.decelerating = m.moving;
        }
    }
    run_ = Run{};
    say(std::string(1, Lead) + "S");
    if (error_ == 0) {
        error_ = 'S';
    }
}

void KdxChain::setAnalog(int value) {
    analog_ = std::clamp(value, 0, 255);
}

void KdxChain::powerCycle() {
    kill();
    live_ = stored_;
    echo_ = options_.echo;
    online_ = true;
    outputs_ = 0;
    buf_.clear();
    priv_ = skipping_ = inComment_ = false;
    for (auto& m : motors_) {
        m.offset = m.pos;
    }
    if (live_.dm & 128) {
        startRun(4);
    }
}

} // namespace korval::sim
