#include "AutoReverseGenerator.h"

#include "AutoReverseLayout.h"
#include "AutoReverseLists.h"

#include "axis/ClsKdxAxis.h"
#include "core/Numbers.h"
#include "core/Text.h"

#include <algorithm>
#include <cmath>

namespace korval {

namespace {

// A setting as the program writes it: the leading number, plain decimal.
std::string num(const std::string& text) {
    return NumToText(Val(text));
}

constexpr double FastestSeek = 2000;
constexpr double LongestPause = 6553.5;
constexpr double MostRepeats = 65535;

} // namespace

std::string AutoReverseSections::Joined() const {
    return TxtOnline + TxtHomeType + TxtHomeUserIO + TxtMoveType + TxtReturnType + TxtRepeatType +
           TxtRunSaveType;
}

AutoReverseGenerator::AutoReverseGenerator(Prompts& prompts, Formatter format,
                                           AutoReverseController* controller)
    : prompts_(prompts), format_(std::move(format)), controller_(controller) {}

std::string AutoReverseGenerator::FormatPosition(std::string text) {
    return ClsKdxAxis::FormatPosition(text);
}

std::string AutoReverseGenerator::FormatSpeed(std::string text) {
    return ClsKdxAxis::FormatVelocity(text);
}

bool AutoReverseGenerator::HomeInstanceShown() const {
    return LayoutFor(settings).homeLimitControlsShown;
}

// ---- sections ----------------------------------------------------------------------------

void AutoReverseGenerator::UpDateHome() {
    auto& s = settings;
    auto& section = sections.TxtHomeType;
    section.clear();
    const auto m = std::to_string(s.CurrentMotor);
    const auto instance = s.CmbHomeInstance;
    if (instance == StartInstance::Blank || instance == StartInstance::EveryRun) {
        line(section, "PM-0,");
    } else if (instance == StartInstance::OnceAfterPowerUp) {
        line(section, "PM-4,");
    }
    seekSpeedCheck(SpeedBox::Home);
    if (StartsFromLimit(s.CmbHomeStyle)) {
        UpDateSpeed(SpeedBox::Home, section);
    }
    const auto h = num(s.TxtHomePosition);
    if (s.CmbHomeStyle == StartStyle::NegativeLimit) {
        line(section, "I" + m + "M-0,");
        line(section, "IA" + m + "M-0,");
        if (Val(h) != 0) {
            line(section, "IA" + m + "M" + h + ",");
        }
    } else if (s.CmbHomeStyle == StartStyle::PositiveLimit) {
        line(section, "I" + m + "M0,");
        line(section, "IA" + m + "M-0,");
        if (Val(h) != 0) {
            // Reached with "M-" here; the return still goes to "M" H.
            line(section, "IA" + m + "M-" + h + ",");
        }
    } else if (s.CmbHomeStyle == StartStyle::CurrentLocation) {
        zeroHere();
    }
    s.TxtHomePosition = FormatPosition(s.TxtHomePosition);
    // A once-only start goes to program 4; the repeated part then begins program 0 and needs no
    // loop marker.
    if (!HomeInstanceShown() || instance == StartInstance::Blank ||
        instance == StartInstance::EveryRun) {
        line(section, "LM0,");
    } else if (instance == StartInstance::OnceAfterPowerUp) {
        line(section, "PM-0,");
    }
    section = commented(section);
}

void AutoReverseGenerator::UpDateHomeOptions() {
    auto& section = sections.TxtHomeUserIO;
    section.clear();
    if (settings.CmbHomeIO == UserAction::Pause) {
        line(section, pauseLine(settings.TxtHomePause));
    } else if (const auto command = ActionCommand(settings.CmbHomeIO); !command.empty()) {
        line(section, command);
    }
    section = commented(section);
}

void AutoReverseGenerator::UpDateMove() {
    auto& s = settings;
    auto& section = sections.TxtMoveType;
    section.clear();
    const auto m = std::to_string(s.CurrentMotor);
    const auto mode = s.CmbMovePosition;
    if (mode == MoveMode::ToPositiveLimit || mode == MoveMode::ToNegativeLimit) {
        seekSpeedCheck(SpeedBox::Move);
    }
    UpDateSpeed(SpeedBox::Move, section);
    switch (mode) {
    case MoveMode::Teach:
        if (Val(s.TxtMovePosition) != 0) {
            line(section, "I" + m + "M" + num(s.TxtMovePosition) + ",");
        }
        break;
    case MoveMode::Distance:
        // From the current location nothing is checked: an M of 0 is a seek to the + limit.
        directionCheck();
        line(section, "I" + m + "M" + num(s.TxtMovePosition) + ",");
        break;
    case MoveMode::ToPositiveLimit:
        line(section, "I" + m + "M0,");
        break;
    case MoveMode::ToNegativeLimit:
        line(section, "I" + m + "M-0,");
        break;
    }
    section = commented(section);
}

void AutoReverseGenerator::UpDateReturn() {
    auto& s = settings;
    auto& section = sections.TxtReturnType;
    section.clear();
    if (s.CmbReturnPosition == UserAction::Pause) {
        line(section, pauseLine(s.TxtReturnPause));
    } else if (const auto command = ActionCommand(s.CmbReturnPosition); !command.empty()) {
        line(section, command);
    }
    UpDateSpeed(SpeedBox::Return, section);
    // The start position as written, whatever side it was reached from.
    line(section, "IA" + std::to_string(s.CurrentMotor) + "M" + num(s.TxtHomePosition) + ",");
    section = commented(section);
}

void AutoReverseGenerator::UpDateLoop() {
    auto& s = settings;
    auto& section = sections.TxtRepeatType;
    section.clear();
    if (s.CmbRepeat == RepeatMode::DoContinuous) {
        line(section, "L0,");
    } else if (s.CmbRepeat == RepeatMode::Do) {
        const double n = Val(s.TxtRepeat);
        if (n < 1) {
            s.TxtRepeat = "1";
        } else if (n > MostRepeats) {
            s.TxtRepeat = NumToText(MostRepeats);
            line(section, "LA" + s.TxtRepeat + ",");
        } else if (n >= 2) {
            line(section, "LA" + NumToText(n) + ",");
        }
    }
}

void AutoReverseGenerator::UpDateRunSave(RunSaveAction action) {
    auto& section = sections.TxtRunSaveType;
    section.clear();
    const auto instance = settings.CmbHomeInstance;
    if (instance == StartInstance::Blank || instance == StartInstance::EveryRun) {
        line(section, "setDM1,");
    } else if (instance == StartInstance::OnceAfterPowerUp) {
        line(section, "setDM129,"); // program 4 runs at power-up
    }
    if (action == RunSaveAction::Test) {
        line(section, "R");
    } else if (action == RunSaveAction::Store) {
        line(section, "rsm");
    }
    section = commented(section);
}

std::string AutoReverseGenerator::Generate(RunSaveAction action) {
    UpDateHome();
    UpDateHomeOptions();
    UpDateMove();
    UpDateReturn();
    UpDateLoop();
    UpDateRunSave(action);
    return action == RunSaveAction::File ? FileText() : ControllerText();
}

std::string AutoReverseGenerator::ControllerText() const {
    return plain(sections.Joined());
}

std::string AutoReverseGenerator::FileText() const {
    return commented(ControllerText() + "R");
}

// ---- the user's choices --------------------------------------------------------------------

void AutoReverseGenerator::ChooseHomeStyle(int index) {
    settings.CmbHomeStyle = static_cast<StartStyle>(index);
    if (settings.CmbHomeStyle == StartStyle::CurrentLocation) {
        ChooseMovePosition(static_cast<int>(MoveMode::Teach));
    } else if (StartsFromLimit(settings.CmbHomeStyle)) {
        settings.TxtHomePosition = "400";
        ChooseMovePosition(static_cast<int>(MoveMode::Distance));
    }
    UpDateHome();
}

void AutoReverseGenerator::ChooseHomeIO(int index) {
    settings.CmbHomeIO = static_cast<UserAction>(index);
    UpDateHomeOptions();
}

void AutoReverseGenerator::ChooseMovePosition(int index) {
    // Teaching is offered from the current location only.
    if (index == static_cast<int>(MoveMode::Teach) && StartsFromLimit(settings.CmbHomeStyle)) {
        index = static_cast<int>(MoveMode::Distance);
    }
    settings.CmbMovePosition = static_cast<MoveMode>(index);
    UpDateMove();
}

void AutoReverseGenerator::ChooseReturnPosition(int index) {
    settings.CmbReturnPosition = static_cast<UserAction>(index);
    UpDateReturn();
}

void AutoReverseGenerator::ChooseRepeat(int index) {
    settings.CmbRepeat = static_cast<RepeatMode>(index);
    UpDateLoop();
}

void AutoReverseGenerator::ChooseVelocityStyle(SpeedBox box, int index) {
    const auto mode = settings.CmbMovePosition;
    const bool seeks = box == SpeedBox::Home ||
                       (box == SpeedBox::Move &&
                        (mode == MoveMode::ToPositiveLimit || mode == MoveMode::ToNegativeLimit));
    if (seeks && (AnalogRangeTop(index) > FastestSeek || index >= VelocityStyleCount)) {
        tell("Speed Too High", "Error: Homing Speed");
        index = 1;
    }
    speedStyle(box) = index;
    UpDateAnalogVelocity(box, index);
    if (box == SpeedBox::Home) {
        UpDateHome();
    } else if (box == SpeedBox::Move) {
        UpDateMove();
    } else {
        UpDateReturn();
    }
}

void AutoReverseGenerator::EnterText(AutoReverseBox box, std::string text) {
    auto& s = settings;
    switch (box) {
    case AutoReverseBox::TxtHomePosition:
        s.TxtHomePosition = std::move(text);
        return UpDateHome();
    case AutoReverseBox::TxtHomeSpeed:
        s.TxtHomeSpeed = std::move(text);
        return UpDateHome();
    case AutoReverseBox::TxtHomePause:
        s.TxtHomePause = std::move(text);
        return UpDateHomeOptions();
    case AutoReverseBox::TxtMovePosition:
        s.TxtMovePosition = std::move(text);
        return UpDateMove();
    case AutoReverseBox::TxtMoveSpeed:
        s.TxtMoveSpeed = std::move(text);
        return UpDateMove();
    case AutoReverseBox::TxtReturnPause:
        s.TxtReturnPause = std::move(text);
        return UpDateReturn();
    case AutoReverseBox::TxtReturnSpeed:
        s.TxtReturnSpeed = std::move(text);
        return UpDateReturn();
    case AutoReverseBox::TxtRepeat:
        s.TxtRepeat = std::move(text);
        return UpDateLoop();
    }
}

// ---- supporting operations -----------------------------------------------------------------

std::string& AutoReverseGenerator::speedText(SpeedBox box) {
    return box == SpeedBox::Home   ? settings.TxtHomeSpeed
           : box == SpeedBox::Move ? settings.TxtMoveSpeed
                                   : settings.TxtReturnSpeed;
}

int& AutoReverseGenerator::speedStyle(SpeedBox box) {
    return box == SpeedBox::Home   ? settings.CmbVelocityStyleHome
           : box == SpeedBox::Move ? settings.CmbVelocityStyleMove
                                   : settings.CmbVelocityStyleReturn;
}

void AutoReverseGenerator::UpDateSpeed(SpeedBox box, std::string& section) {
    const auto m = std::to_string(settings.CurrentMotor);
    const int style = speedStyle(box);
    if (style == StepsPerSecond) {
        auto& speed = speedText(box);
        speed = FormatSpeed(speed);
        line(section, "S" + m + "M" + speed + ",");
    } else if (const int code = AnalogRangeCode(style); code != 0) {
        line(section, "S" + m + "M-" + std::to_string(code) + ",");
    }
}

void AutoReverseGenerator::UpDateAnalogVelocity(SpeedBox box, int index) {
    if (index == StepsPerSecond) {
        speedText(box) = box == SpeedBox::Home ? "500" : "2000";
    } else if (const auto text = AnalogSpeedText(index); !text.empty()) {
        speedText(box) = text;
    }
}

// A seek to a limit is held to 2000 steps per second.
void AutoReverseGenerator::seekSpeedCheck(SpeedBox box) {
    if (speedStyle(box) != StepsPerSecond) {
        return;
    }
    const auto title = box == SpeedBox::Home ? "Error: Homing Speed" : "Error: Moving Speed";
    auto& speed = speedText(box);
    if (!IsNumeric(speed)) {
        tell("Invalid Speed", title);
        speed = "500";
    }
    const double v = Val(speed);
    if (v < 0) {
        tell("Speed Too Low", title);
        speed = "0";
    } else if (v > FastestSeek) {
        tell("Speed Too High", title);
        speed = NumToText(FastestSeek);
    }
}

// Travel away from a limit must point away from it, and may come back no further than the
// start position.
void AutoReverseGenerator::directionCheck() {
    auto& s = settings;
    const bool fromNegative = s.CmbHomeStyle == StartStyle::NegativeLimit;
    if (!fromNegative && s.CmbHomeStyle != StartStyle::PositiveLimit) {
        return;
    }
    const double h = Val(s.TxtHomePosition);
    const double m = Val(s.TxtMovePosition);
    const auto hText = NumToText(h);
    const std::string way = fromNegative ? "positive" : "negative";
    const bool wrongWay = fromNegative ? m < 0 : m > 0;
    std::string sentence;
    std::string repaired;
    if (h == 0 && wrongWay) {
        sentence = "Maximum Travel must be in the " + way + " direction";
        repaired = fromNegative ? "400" : "-400";
    } else if (m == 0) {
        sentence =
            "Maximum Travel is a value greater than zero steps, and in the " + way + " direction";
        repaired = fromNegative ? "400" : "-400";
    } else if (h != 0 && wrongWay && std::fabs(h) < std::fabs(m)) {
        repaired = fromNegative ? "-" + hText : hText;
        sentence = "Maximum Travel is " + repaired + " Steps";
    } else {
        return;
    }
    tell("Invalid Distance\r\n\r\n" + sentence, "Error: Moving Direction");
    s.TxtMovePosition = repaired;
}

// Makes the present place absolute zero and takes it as the start position. Each step asks
// afresh whether the window is still there: the run can outlast it.
void AutoReverseGenerator::zeroHere() {
    if (controller_ == nullptr) {
        return;
    }
    auto& c = *controller_;
    const auto motor = settings.CurrentMotor;
    if (c.Visible()) {
        c.SendCommandsToPort("C,IA" + std::to_string(motor) + "M-0,");
    }
    if (c.Visible()) {
        c.RunKdxProgramAndWaitForFinish(1);
    }
    if (c.Visible()) {
        settings.TxtHomePosition = FormatPosition(c.GetCurrentMotorPosition(motor));
    }
}

// The box is repaired and shown with one decimal, then read again for the command. The reread
// stops at a thousands comma, so 1,000.0 seconds gives P10: kept as the tool has always done.
std::string AutoReverseGenerator::pauseLine(std::string& pauseBox) {
    const double v = Val(pauseBox);
    pauseBox = v < 0.1 ? "0.1" : FormatGrouped(std::min(v, LongestPause), 1);
    return "P" + NumToText(Val(pauseBox) * 10) + ",";
}

void AutoReverseGenerator::line(std::string& section, const std::string& command) const {
    section += command + "\r\n";
}

std::string AutoReverseGenerator::commented(const std::string& text) const {
    auto out = format_ ? format_(text, 1) : text;
    ReplaceAll(out, ";", "\t\t;");
    ReplaceAll(out, "\r", "\r\n");
    return out;
}

std::string AutoReverseGenerator::plain(const std::string& text) const {
    auto out = format_ ? format_(text, 0) : text;
    ReplaceAll(out, "\r\n", "\r");
    return out;
}

void AutoReverseGenerator::tell(const std::string& text, const std::string& title) {
    prompts_.Message(text, title, Prompts::Icon::Warning, Prompts::Buttons::Ok);
}

} // namespace korval
