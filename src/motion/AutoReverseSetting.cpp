#include "AutoReverseSetting.h"

#include "AutoReverseLists.h"

#include <array>
#include <charconv>
#include <functional>
#include <optional>

namespace korval {

namespace {

using Choose = std::function<void(AutoReverseGenerator&, int)>;

// A choice by number: a list's index, or the motor.
struct Combo {
    std::string_view name;
    int first;
    int last;
    Choose choose;
};

struct Box {
    std::string_view name;
    AutoReverseBox box;
};

Choose velocity(SpeedBox box) {
    return [box](AutoReverseGenerator& g, int i) { g.ChooseVelocityStyle(box, i); };
}

const std::vector<Combo>& combos() {
    using G = AutoReverseGenerator;
    const auto last = [](const std::vector<std::string>& list) {
        return static_cast<int>(list.size()) - 1;
    };
    static const std::vector<Combo> table = {
        {"CurrentMotor", 1, 4, [](G& g, int m) { g.ChooseMotor(m); }},
        {"CmbHomeStyle", 0, last(StartStyleList()), [](G& g, int i) { g.ChooseHomeStyle(i); }},
        {"CmbHomeInstance", 0, last(StartInstanceList()),
         [](G& g, int i) { g.ChooseHomeInstance(i); }},
        {"CmbVelocityStyleHome", 0, VelocityStyleCount - 1, velocity(SpeedBox::Home)},
        {"CmbHomeIO", 0, last(HomeActionList()), [](G& g, int i) { g.ChooseHomeIO(i); }},
        {"CmbMovePosition", 0, last(MoveModeList()), [](G& g, int i) { g.ChooseMovePosition(i); }},
        {"CmbVelocityStyleMove", 0, VelocityStyleCount - 1, velocity(SpeedBox::Move)},
        {"CmbReturnPosition", 0, last(ReturnActionList()),
         [](G& g, int i) { g.ChooseReturnPosition(i); }},
        {"CmbVelocityStyleReturn", 0, VelocityStyleCount - 1, velocity(SpeedBox::Return)},
        {"CmbRepeat", 0, last(RepeatList()), [](G& g, int i) { g.ChooseRepeat(i); }},
    };
    return table;
}

constexpr std::array<Box, 8> Boxes = {{
    {"TxtHomePosition", AutoReverseBox::TxtHomePosition},
    {"TxtHomeSpeed", AutoReverseBox::TxtHomeSpeed},
    {"TxtHomePause", AutoReverseBox::TxtHomePause},
    {"TxtMovePosition", AutoReverseBox::TxtMovePosition},
    {"TxtMoveSpeed", AutoReverseBox::TxtMoveSpeed},
    {"TxtReturnPause", AutoReverseBox::TxtReturnPause},
    {"TxtReturnSpeed", AutoReverseBox::TxtReturnSpeed},
    {"TxtRepeat", AutoReverseBox::TxtRepeat},
}};

// Plain decimal digits only: "01" is 1, while "1.0", "-1", " 1" and "" are no index.
std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    const auto* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (text.empty() || text[0] == '-' || ec != std::errc() || ptr != end) {
        return std::nullopt;
    }
    return value;
}

} // namespace

SettingOutcome ApplyAutoReverseSetting(AutoReverseGenerator& generator, std::string_view name,
                                       std::string_view value) {
    for (const auto& box : Boxes) {
        if (box.name == name) {
            generator.EnterText(box.box, std::string(value));
            return {true, {}};
        }
    }
    for (const auto& combo : combos()) {
        if (combo.name != name) {
            continue;
        }
        const auto number = wholeNumber(value);
        if (!number || *number < combo.first || *number > combo.last) {
            return {false, std::string(name) + " takes a number from " +
                               std::to_string(combo.first) + " to " + std::to_string(combo.last) +
                               ", not \"" + std::string(value) + "\""};
        }
        combo.choose(generator, *number);
        return {true, {}};
    }
    return {false, "no setting is named \"" + std::string(name) + "\""};
}

SettingOutcome ApplyAutoReverseAssignment(AutoReverseGenerator& generator,
                                          std::string_view assignment) {
    const auto equals = assignment.find('=');
    if (equals == std::string_view::npos) {
        return {false, "\"" + std::string(assignment) + "\" is not NAME=VALUE"};
    }
    return ApplyAutoReverseSetting(generator, assignment.substr(0, equals),
                                   assignment.substr(equals + 1));
}

} // namespace korval
