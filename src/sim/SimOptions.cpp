#include "sim/SimOptions.h"

#include <array>
#include <charconv>
#include <sstream>

namespace korval::sim {

namespace {

constexpr std::array<const char*, 6> Arrangements = {"1", "2", "2+1", "1+2", "1+1", "2+2"};

bool toLong(const std::string& s, long low, long high, long& out) {
    long v = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (ec != std::errc() || end != s.data() + s.size() || v < low || v > high) {
        return false;
    }
    out = v;
    return true;
}

bool axisMask(const std::string& value, int& mask) {
    int m = 0;
    for (const char c : value) {
        if (c < '1' || c > '4') {
            return false;
        }
        m |= 1 << (c - '1');
    }
    mask = m;
    return true;
}

int modelOf(const std::string& arrangement, int controller) {
    const auto plus = arrangement.find('+');
    if (controller == 1) {
        return arrangement.empty() ? 0 : arrangement[0] - '0';
    }
    return plus == std::string::npos || plus + 1 >= arrangement.size()
               ? 0
               : arrangement[plus + 1] - '0';
}

} // namespace

bool ArrangementHasController(const std::string& arrangement, int controller) {
    return modelOf(arrangement, controller) > 0;
}

bool ArrangementHasAxis(const std::string& arrangement, int axis) {
    if (axis < 1 || axis > 4) {
        return false;
    }
    const int controller = (axis + 1) / 2;
    const int onController = axis - (controller - 1) * 2;
    return onController <= modelOf(arrangement, controller);
}

AxisState StateOfAxis(const SimOptions& options, int axis) {
    if (options.silentAxes & (1 << (axis - 1))) {
        return AxisState::Silent;
    }
    if (ArrangementHasAxis(options.arrangement, axis)) {
        return AxisState::Present;
    }
    return ArrangementHasController(options.arrangement, (axis + 1) / 2) ? AxisState::OneMotor
                                                                         : AxisState::NoController;
}

bool ParseSimOptions(const std::string& text, SimOptions& options, std::string& error) {
    SimOptions o = options;
    std::stringstream items(text);
    std::string item;
    while (std::getline(items, item, ',')) {
        if (item.empty()) {
            continue;
        }
        const auto eq = item.find('=');
        const auto key = item.substr(0, eq);
        const auto value = eq == std::string::npos ? std::string() : item.substr(eq + 1);
        long n = 0;
        bool good = true;
        if (key == "arrangement") {
            good = false;
            for (const char* a : Arrangements) {
                good = good || value == a;
            }
            if (good) {
                o.arrangement = value;
            }
        } else if (key == "firmware") {
            good = !value.empty() && value.size() < 16;
            o.firmware = value;
        } else if (key == "date") {
            good = value.size() < 32;
            o.date = value;
        } else if (key == "mode" && toLong(value, 0, 255, n)) {
            o.mode = static_cast<int>(n);
        } else if (key == "baud" && (value == "9600" || value == "19200" || value == "38400")) {
            o.baud = std::stoi(value);
        } else if (key == "echo" && (value == "on" || value == "off")) {
            o.echo = value == "on";
        } else if (key == "switches" && (value == "nc" || value == "no")) {
            o.normallyOpen = value == "no";
        } else if (key == "silent") {
            good = axisMask(value, o.silentAxes);
        } else if (key == "nolimits") {
            good = axisMask(value, o.unwiredLimits);
        } else if (key == "travel" && toLong(value, 1, 16777215, n)) {
            o.travel = n;
        } else if (key == "overtravel" && toLong(value, 0, 65535, n)) {
            o.overTravel = static_cast<int>(n);
        } else if (key == "analog" && toLong(value, 0, 255, n)) {
            o.analog = static_cast<int>(n);
        } else if (key == "language-only" && (value == "on" || value == "off")) {
            o.languageOnly = value == "on";
        } else if (key == "reply-delay" && toLong(value, 0, 1000, n)) {
            o.replyDelayMs = static_cast<int>(n);
        } else if (key == "char-spacing" && toLong(value, 0, 1000, n)) {
            o.charSpacingMs = static_cast<int>(n);
        } else if (key == "reply-pause" && toLong(value, 0, 1000, n)) {
            o.replyPauseMs = static_cast<int>(n);
        } else {
            good = false;
        }
        if (!good) {
            error = "bad option \"" + item + "\"";
            return false;
        }
    }
    options = o;
    return true;
}

} // namespace korval::sim
