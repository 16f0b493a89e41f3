#pragma once
// Everything the AutoReverse tool lets the user set, one field for each control that holds it,
// with the tool's defaults. Numbers stay text, as typed: the generator reads them leniently.
#include <cstdint>
#include <string>

namespace korval {

// The combo lists' meanings, by index.
enum class StartStyle { CurrentLocation = 0, NegativeLimit = 1, PositiveLimit = 2 };
inline bool StartsFromLimit(StartStyle style) {
    return style == StartStyle::NegativeLimit || style == StartStyle::PositiveLimit;
}
enum class StartInstance { NotChosen = -1, Blank = 0, EveryRun = 1, OnceAfterPowerUp = 2 };
enum class MoveMode { Teach = 0, Distance = 1, ToPositiveLimit = 2, ToNegativeLimit = 3 };
// Index 0 is "no action" in the options list and "Move to Start" in the return list.
enum class UserAction {
    NoAction = 0,
    Pause = 1,
    WaitRunButton = 2,
    WaitInput1 = 3,
    Output1On = 4,
    Output1Off = 5,
    Output2On = 6,
    Output2Off = 7,
};
enum class RepeatMode { Do = 0, DoContinuous = 1 };

struct AutoReverseSettings {
    std::int32_t CurrentMotor = 1;

    StartStyle CmbHomeStyle = StartStyle::CurrentLocation;
    StartInstance CmbHomeInstance = StartInstance::EveryRun;
    std::string TxtHomePosition = "0";
    std::string TxtHomeSpeed = "500";
    int CmbVelocityStyleHome = 0; // an index of the velocity list

    UserAction CmbHomeIO = UserAction::NoAction;
    std::string TxtHomePause = "1";

    MoveMode CmbMovePosition = MoveMode::Teach;
    std::string TxtMovePosition = "400";
    std::string TxtMoveSpeed = "2000";
    int CmbVelocityStyleMove = 0;

    UserAction CmbReturnPosition = UserAction::NoAction;
    std::string TxtReturnPause = "1";
    std::string TxtReturnSpeed = "2000";
    int CmbVelocityStyleReturn = 0;

    RepeatMode CmbRepeat = RepeatMode::Do;
    std::string TxtRepeat = "1";
};

} // namespace korval
