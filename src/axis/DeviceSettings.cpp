#include "DeviceSettings.h"

#include "ClsKdxAxis.h"

#include "core/Numbers.h"

namespace korval {

namespace {

constexpr double DeadBandLowest = 20;
constexpr double DeadBandHighest = 100;
constexpr int AnalogRows = 25;
constexpr int AnalogStep = 250; // steps per second of one row

// "C,setj1M2000,setJ1M1000,,rsm", with "A" after both words for the analog joystick.
std::string speedPair(const std::string& kind, int axis, const std::string& primary,
                      const std::string& secondary) {
    const auto a = std::to_string(axis);
    return "C,setj" + kind + a + "M" + primary + ",setJ" + kind + a + "M" + secondary + ",,rsm";
}

} // namespace

std::string JogButtonsSetting(int axis, std::string& velocityText, bool disabled) {
    const auto v = ClsKdxAxis::FormatVelocity(velocityText);
    return disabled ? speedPair("", axis, "0", "0") : speedPair("", axis, v, v);
}

std::optional<std::string> DigitalJoystickSetting(int axis, std::string& primaryText,
                                                  std::string& secondaryText, bool disabled) {
    const auto primary = ClsKdxAxis::FormatVelocity(primaryText);
    const auto secondary = ClsKdxAxis::FormatVelocity(secondaryText);
    if (disabled) {
        return speedPair("", axis, "0", "0");
    }
    if (Val(secondary) > Val(primary)) {
        return std::nullopt;
    }
    return speedPair("", axis, primary, secondary);
}

std::vector<std::string> AnalogSpeedRows() {
    std::vector<std::string> rows{"Disable Joystick"};
    for (int i = 1; i < AnalogRows; ++i) {
        rows.push_back(std::to_string(i) + "-" + std::to_string(AnalogStep * i) +
                       " Steps per Second");
    }
    return rows;
}

int SecondarySpeedRow(int row) {
    return row < 1 ? 1 : row;
}

std::string AnalogJoystickSetting(int axis, int primaryRow, int secondaryRow) {
    if (primaryRow <= 0) {
        return speedPair("A", axis, "0", "0");
    }
    return speedPair("A", axis, std::to_string(primaryRow), std::to_string(secondaryRow));
}

std::string DeadBandSetting(std::string& deadBandText) {
    const double v = Val(deadBandText);
    if (v < DeadBandLowest) {
        deadBandText = NumToText(DeadBandLowest);
    } else if (v > DeadBandHighest) {
        deadBandText = NumToText(DeadBandHighest);
    }
    return "setDA" + NumToText(Val(deadBandText)) + ",rsm";
}

std::vector<std::string> AnalogJoystickSettings(int axis, std::string& deadBandText, int primaryRow,
                                                int secondaryRow) {
    return {DeadBandSetting(deadBandText), AnalogJoystickSetting(axis, primaryRow, secondaryRow)};
}

std::string ThumbwheelSetting(bool useThumbwheel) {
    return useThumbwheel ? "C,setI67,rsm" : "C,setI7,rsm";
}

bool SendSetting(ClsDriverKdx& driver, const std::string& setting) {
    // A "^" left from earlier traffic must not pass for this setting's answer.
    driver.ClearPortChars();
    driver.SendCommandsToPort(setting);
    return driver.WaitForCharacter("^", 1) == 1;
}

bool SendSettings(ClsDriverKdx& driver, const std::vector<std::string>& settings) {
    bool confirmed = true;
    for (const auto& setting : settings) {
        confirmed = SendSetting(driver, setting) && confirmed;
    }
    return confirmed;
}

std::string SettingConfirmation(bool confirmed) {
    return confirmed ? "Stored in the KDX" : "Not confirmed: the KDX did not answer";
}

} // namespace korval
