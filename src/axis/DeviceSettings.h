#pragma once
// The setting strings of the attached devices, with the speeds cleaned as their windows clean
// them. Each string but the dead band's starts with "C," and ends with ",rsm" (after a double
// comma for the per-axis speeds); the controller answers "^" once it has stored them.
#include "link/ClsDriverKdx.h"

#include <optional>
#include <string>
#include <vector>

namespace korval {

inline constexpr const char* SpeedErrorTitle = "Speed Error";
inline constexpr const char* SpeedErrorText =
    "Secondary speed can not be higher than primary speed";

// Jog buttons: the velocity text is cleaned in place (0..6000); a disabled device gets speed 0.
// Axis 1 at 2000: "C,setj1M2000,setJ1M2000,,rsm".
std::string JogButtonsSetting(int axis, std::string& velocityText, bool disabled);

// Digital joystick: both texts are cleaned in place. Null when the secondary speed is above
// the primary one and the device is not disabled: nothing is to be sent.
std::optional<std::string> DigitalJoystickSetting(int axis, std::string& primaryText,
                                                  std::string& secondaryText, bool disabled);

// The 25 rows of both analog speed lists: "Disable Joystick", then "1-250 Steps per Second" to
// "24-6000 Steps per Second". The row is the value sent, in units of 250 steps per second.
std::vector<std::string> AnalogSpeedRows();
inline constexpr int AnalogPrimaryStartRow = 1;
inline constexpr int AnalogSecondaryStartRow = 10;
// The secondary list can't disable the joystick: its row 0 (or no row) becomes row 1.
int SecondarySpeedRow(int row);

// Analog joystick speeds; a primary row of 0 (or none, -1) disables it, and sends 0 for the
// secondary too.
std::string AnalogJoystickSetting(int axis, int primaryRow, int secondaryRow);

// The dead band text is held to 20..100 in place; "setDA50,rsm" (it has no "C,").
std::string DeadBandSetting(std::string& deadBandText);
inline constexpr const char* AnalogDeadBandStart = "50";

// What the analog joystick's save sends, in order: the dead band, then the speeds.
std::vector<std::string> AnalogJoystickSettings(int axis, std::string& deadBandText, int primaryRow,
                                                int secondaryRow);

// "C,setI67,rsm" when the thumbwheel selects the program, "C,setI7,rsm" when it does not.
std::string ThumbwheelSetting(bool useThumbwheel);

// Sends a setting string and waits at most a second for the controller's "^"; true when it
// came, so a window can say that a setting was not confirmed.
bool SendSetting(ClsDriverKdx& driver, const std::string& setting);
// Each setting in turn, each with its own wait, even after one went unanswered; true when
// every one was confirmed.
bool SendSettings(ClsDriverKdx& driver, const std::vector<std::string>& settings);
// What a device window shows once its settings have gone out.
std::string SettingConfirmation(bool confirmed);

} // namespace korval
