#include "AutoReverseLists.h"

#include <array>

namespace korval {

namespace {

// The controller's analog ranges in list order: one digit r is 1 to r thousand, two digits ab
// are a thousand to a + b thousand.
constexpr std::array<int, 21> RangeCodes = {1,  2,  3,  4,  5,  6,  11, 12, 13, 14, 15,
                                            21, 22, 23, 24, 31, 32, 33, 41, 42, 51};

bool isRange(int index) {
    return index >= 1 && index < VelocityStyleCount;
}
int rangeBottom(int code) {
    return code < 10 ? 1 : code / 10 * 1000;
}
int rangeTop(int code) {
    return code < 10 ? code * 1000 : (code / 10 + code % 10) * 1000;
}

std::vector<std::string> withActions(std::string first) {
    return {std::move(first), "Pause",        "Wait for Run Button", "Wait for Input 1",
            "Output 1 On",    "Output 1 Off", "Output 2 On",         "Output 2 Off"};
}

} // namespace

const std::vector<std::string>& StartStyleList() {
    static const std::vector<std::string> list = {"From Current Location", "From Negative Limit",
                                                  "From Positive Limit"};
    return list;
}

const std::vector<std::string>& StartInstanceList() {
    static const std::vector<std::string> list = {"", "Home Every Run", "Home Once After Power-Up"};
    return list;
}

const std::vector<std::string>& HomeActionList() {
    static const auto list = withActions(std::string(24, '*'));
    return list;
}

const std::vector<std::string>& ReturnActionList() {
    static const auto list = withActions("Move to Start");
    return list;
}

const std::vector<std::string>& MoveModeList() {
    static const std::vector<std::string> list = {"Teach", "Distance", "To Positive Limit",
                                                  "To Negative Limit"};
    return list;
}

const std::vector<std::string>& RepeatList() {
    static const std::vector<std::string> list = {"Do", "Do Continuous"};
    return list;
}

const std::vector<std::string>& VelocityStyleList() {
    static const auto list = [] {
        std::vector<std::string> entries = {"Steps / Second"};
        for (const int code : RangeCodes) {
            entries.push_back("Analog Range " + std::to_string(code));
        }
        return entries;
    }();
    return list;
}

int AnalogRangeCode(int index) {
    return isRange(index) ? RangeCodes[static_cast<std::size_t>(index - 1)] : 0;
}

std::string AnalogSpeedText(int index) {
    if (!isRange(index)) {
        return {};
    }
    const int code = AnalogRangeCode(index);
    return std::to_string(rangeBottom(code)) + " to " + std::to_string(rangeTop(code)) +
           " Steps / Sec = ";
}

int AnalogRangeTop(int index) {
    return isRange(index) ? rangeTop(AnalogRangeCode(index)) : 0;
}

std::string ActionCommand(UserAction action) {
    switch (action) {
    case UserAction::WaitRunButton:
        return "U90,";
    case UserAction::WaitInput1:
        return "U0,";
    case UserAction::Output1On:
        return "U5,";
    case UserAction::Output1Off:
        return "U4,";
    case UserAction::Output2On:
        return "U15,";
    case UserAction::Output2Off:
        return "U14,";
    case UserAction::NoAction:
    case UserAction::Pause:
        break;
    }
    return {};
}

} // namespace korval
