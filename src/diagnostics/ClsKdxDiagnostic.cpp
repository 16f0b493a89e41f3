#include "ClsKdxDiagnostic.h"

#include "CommandLanguage.h"

#include "core/Numbers.h"
#include "core/Text.h"

#include <utility>

namespace korval {

namespace {

constexpr const char* CrLf = "\r\n";

struct BitLine {
    const char* forZero;
    const char* forOne;
};

// Lines by position, position 1 being bit 0; a character other than 0 or 1 adds nothing.
std::string bitLines(const std::string& bits, const BitLine (&lines)[8], int firstPosition) {
    std::string text;
    for (int position = firstPosition; position <= 8; ++position) {
        const char bit = bits[static_cast<std::size_t>(position - 1)];
        const auto& line = lines[position - 1];
        if (bit == '0') {
            text += std::string(line.forZero) + CrLf;
        } else if (bit == '1') {
            text += std::string(line.forOne) + CrLf;
        }
    }
    return text;
}

constexpr BitLine OperatingModeLines[8] = {
    {"", ""}, // bit 0 is not shown
    {"Invert Motor 1 Direction: False", "Invert Motor 1 Direction: True"},
    {"Invert Motor 2 Direction: False", "Invert Motor 2 Direction: True"},
    {"Emulate TB40: False", "Emulate TB40: True"},
    {"Invert Motor 3 Direction: False", "Invert Motor 3 Direction: True"},
    {"Invert Motor 4 Direction: False", "Invert Motor 4 Direction: True"},
    {"Set KDX as Master: False", "Set KDX as Master: True"},
    {"Run Program 4 on Startup: False", "Run Program 4 on Startup: True"},
};

constexpr BitLine MultifunctionLines[8] = {
    {"Run button enabled: False", "Run button enabled: True"},
    {"Stop button (Input4) enabled: False", "Stop button (Input4) enabled: True"},
    {"Input 3 Interrupt User Waits and Jump to Program 3: False",
     "Input 3 Interrupt User Waits and Jump to Program 3: True"},
    {"Low valid time for Input 1 and Run button = 1 Millisecond",
     "Low valid time for Input 1 and Run button = 100 Microseconds"},
    {"Stop (Input4) = Decel to stop", "Stop (Input4) = Hard stop"},
    {"Jump to Program 4 after Stop input (Input 4): False",
     "Jump to Program 4 after Stop input (Input 4): True"},
    {"Program # Select via Inputs 2 and 3 (Thumbwheel switch): False",
     "Program # Select via Inputs 2 and 3 (Thumbwheel switch): True"},
    {"Capture Motor Position on Input 4 trigger: False",
     "Capture Motor Position on Input 4 trigger: True"},
};

// Inputs and limits are active low: a 0 bit reads "True".
constexpr BitLine UserInputLines[8] = {
    {"Jog 1 - On: True", "Jog 1 - On: False"}, {"Jog 1 + On: True", "Jog 1 + On: False"},
    {"Jog 2 - On: True", "Jog 2 - On: False"}, {"Jog 2 + On: True", "Jog 2 + On: False"},
    {"Input 1 On: True", "Input 1 On: False"}, {"Input 2 On: True", "Input 2 On: False"},
    {"Input 3 On: True", "Input 3 On: False"}, {"Input 4 On: True", "Input 4 On: False"},
};

constexpr BitLine LimitLines[8] = {
    {"Limit 1 - Activated: True", "Limit 1 - Activated: False"},
    {"Limit 1 + Activated: True", "Limit 1 + Activated: False"},
    {"Limit 2 - Activated: True", "Limit 2 - Activated: False"},
    {"Limit 2 + Activated: True", "Limit 2 + Activated: False"},
    {"Limit 3 - Activated: True", "Limit 3 - Activated: False"},
    {"Limit 3 + Activated: True", "Limit 3 + Activated: False"},
    {"Limit 4 - Activated: True", "Limit 4 - Activated: False"},
    {"Limit 4 + Activated: True", "Limit 4 + Activated: False"},
};

// Outputs are active high, and only four of them exist.
constexpr BitLine UserOutputLines[8] = {
    {"Output 1 On: False", "Output 1 On: True"}, {"Output 2 On: False", "Output 2 On: True"},
    {"Output 3 On: False", "Output 3 On: True"}, {"Output 4 On: False", "Output 4 On: True"},
    {"Bit 5 - Not Used", "Bit 5 - Not Used"},    {"Bit 6 - Not Used", "Bit 6 - Not Used"},
    {"Bit 7 - Not Used", "Bit 7 - Not Used"},    {"Bit 8 - Not Used", "Bit 8 - Not Used"},
};

std::string maskText(int code, const BitLine (&lines)[8]) {
    return "Actual value = " + std::to_string(code) + CrLf +
           bitLines(kdx::WordBits(code), lines, 1);
}

std::string withoutCrLf(std::string text) {
    ReplaceAll(text, "\r\n", "");
    return text;
}

void setText(TextTarget* target, const std::string& text) {
    if (target != nullptr) {
        target->SetText(text);
    }
}

} // namespace

// Only the outermost method sets and restores the pointer, so a nested count query does not
// put it back to normal halfway through.
class ClsKdxDiagnostic::Busy {
public:
    explicit Busy(ClsKdxDiagnostic& owner) : owner_(owner) {
        if (owner_.busyDepth_++ == 0 && owner_.pointer_ != nullptr) {
            owner_.pointer_->SetBusy(true);
        }
    }
    ~Busy() {
        if (--owner_.busyDepth_ == 0 && owner_.pointer_ != nullptr) {
            owner_.pointer_->SetBusy(false);
        }
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    ClsKdxDiagnostic& owner_;
};

ClsKdxDiagnostic::ClsKdxDiagnostic(ClsDriverKdx& driver, ClsTimeDelay& delay,
                                   CommandsFormatter format, BusyPointer* pointer,
                                   const ReplyTiming* timing)
    : cycle_(driver, delay, timing), format_(std::move(format)), pointer_(pointer) {}

std::string ClsKdxDiagnostic::askAfterPrologue(std::string_view query, ReplyForm form,
                                               double wait) {
    cycle_.Prologue();
    result_.clear();
    return cycle_.Ask(query, form, wait);
}

std::string ClsKdxDiagnostic::show(TextTarget* control) {
    setText(control, result_);
    return result_;
}

std::string ClsKdxDiagnostic::labelled(const char* label, std::string_view query,
                                       TextTarget* control) {
    Busy busy(*this);
    const auto reply = askAfterPrologue(query, ReplyForm::Word);
    result_ = kdx::CrToCrLf(label + reply);
    return show(control);
}

std::string ClsKdxDiagnostic::GetProcessor(TextTarget* control) {
    Busy busy(*this);
    const auto version = askAfterPrologue(kdx::GetFirmwareVersion(), ReplyForm::Word);
    const auto date = cycle_.Ask(kdx::GetFirmwareDate(), ReplyForm::Word);
    const auto mode = kdx::ReadWord(cycle_.Ask(kdx::GetModeNumber(), ReplyForm::Word));
    result_ = "Version: " + version + "Date: " + date;
    if (mode == 2 || mode == 4) {
        result_ += "Mode: Master";
    }
    result_ = kdx::CrToCrLf(result_);
    return show(control);
}

std::string ClsKdxDiagnostic::GetOperatingMode(TextTarget* control) {
    Busy busy(*this);
    const auto reply = askAfterPrologue(kdx::GetOperatingMode(), ReplyForm::Word);
    // The reply goes in as it came, its CR included.
    result_ = "Actual value = " + reply + CrLf +
              bitLines(kdx::WordBits(kdx::ReadWord(reply)), OperatingModeLines, 2);
    return show(control);
}

std::string ClsKdxDiagnostic::GetCurrentProgram(TextTarget* control) {
    return labelled("Current Program: ", kdx::GetCurrentProgram(), control);
}

std::string ClsKdxDiagnostic::GetCurrentProgramAssociate(TextTarget* control) {
    return labelled("Current Program Associate: ", kdx::GetCurrentProgramAssociate(), control);
}

std::string ClsKdxDiagnostic::GetProgram(int program, TextTarget* control) {
    Busy busy(*this);
    const auto reply =
        askAfterPrologue(kdx::ListProgram(program), ReplyForm::Listing, QueryCycle::ListingDelay);
    result_ = kdx::ListingForDisplay(format_ ? format_(reply, 1) : reply);
    return show(control);
}

int ClsKdxDiagnostic::GetNumberOfControls() {
    Busy busy(*this);
    return kdx::CountCodeFromReply(askAfterPrologue(kdx::GetMotorSetting(3), ReplyForm::Word));
}

std::string ClsKdxDiagnostic::perAxis(const AxisTargets& controls, bool secondPrologueOnTwo,
                                      const MotorItems& items, bool twoItems) {
    Busy busy(*this);
    cycle_.Prologue();
    result_.clear();
    const int count = GetNumberOfControls();
    if (count == 0) {
        return result_; // nothing answered: the targets keep what they showed
    }
    if (count == 1 && secondPrologueOnTwo) {
        cycle_.Prologue();
    }
    const int motors = count == 1 ? 2 : 4;
    std::string joined;
    for (int motor = 1; motor <= motors; ++motor) {
        const auto texts = items(motor, count);
        setText(controls[static_cast<std::size_t>(motor - 1)],
                twoItems ? texts[0] + texts[1] : texts[0]);
        for (int i = 0; i < (twoItems ? 2 : 1); ++i) {
            joined += (joined.empty() ? "" : ";") + withoutCrLf(texts[static_cast<std::size_t>(i)]);
        }
    }
    if (count == 1) {
        setText(controls[2], "");
        setText(controls[3], "");
    }
    result_ = joined;
    return result_;
}

std::string ClsKdxDiagnostic::GetAxisSettings(const AxisTargets& controls) {
    return perAxis(
        controls, true,
        [this](int motor, int count) -> std::array<std::string, 2> {
            auto clean = [&](std::string reply, bool echoed) {
                ReplaceAll(reply, "\r\n", "");
                std::erase(reply, '\r');
                // The two-motor branch cleans exactly these three replies of "getM1M" and
                // commas; the fourth and the four-motor branch are left as they came.
                if (count == 1 && echoed) {
                    ReplaceAll(reply, "getM1M", "");
                    std::erase(reply, ',');
                }
                return reply;
            };
            const auto motorSetting =
                cycle_.AskAfterPause(kdx::GetMotorSetting(motor), ReplyForm::Word);
            const auto limitSetting =
                cycle_.AskAfterPause(kdx::GetLimitSetting(motor), ReplyForm::Word);
            return {"Setting for Motor" + std::to_string(motor) + ": " +
                        clean(motorSetting, motor <= 2) + CrLf,
                    "Setting for Limit" + std::to_string(motor) + ": " +
                        clean(limitSetting, motor == 1) + CrLf};
        },
        true);
}

std::string ClsKdxDiagnostic::GetDeadBand(TextTarget* control) {
    return labelled("Deadband: ", kdx::GetDeadBand(), control);
}

std::string ClsKdxDiagnostic::GetJoystickAnalogSettings(const AxisTargets& controls) {
    return perAxis(
        controls, false,
        [this](int motor, int) -> std::array<std::string, 2> {
            const auto primary =
                kdx::CrToCrLf(cycle_.Ask(kdx::GetAnalogPrimary(motor), ReplyForm::Word));
            const auto secondary =
                kdx::CrToCrLf(cycle_.Ask(kdx::GetAnalogSecondary(motor), ReplyForm::Word));
            // In this order: a secondary out of range shows the primary's text.
            auto first =
                "Primary Axis " + std::to_string(motor) + " " + SortAnalogJoystickSetting(primary);
            auto second = "Secondary Axis " + std::to_string(motor) + " " +
                          SortAnalogJoystickSetting(secondary);
            return {first, second};
        },
        true);
}

std::string ClsKdxDiagnostic::SortAnalogJoystickSetting(const std::string& setting) {
    const double value = Val(setting);
    for (int n = 0; n <= 24; ++n) {
        if (value == n) {
            const auto span =
                n == 0 ? std::string(" = Disabled")
                       : " = " + std::to_string(n) + " to " + std::to_string(n * 250) + " sps";
            result_ = "Setting: " + Str(n) + span + CrLf;
            break;
        }
    }
    return result_;
}

std::string ClsKdxDiagnostic::GetJoystickDigitalSettings(const AxisTargets& controls) {
    return perAxis(
        controls, false,
        [this](int motor, int) -> std::array<std::string, 2> {
            const auto primary = cycle_.Ask(kdx::GetJoystickPrimary(motor), ReplyForm::Word);
            const auto secondary = cycle_.Ask(kdx::GetJoystickSecondary(motor), ReplyForm::Word);
            return {kdx::CrToCrLf("Primary Setting: " + primary),
                    kdx::CrToCrLf("Secondary Setting: " + secondary)};
        },
        true);
}

std::string ClsKdxDiagnostic::GetPulseWidth(TextTarget* control) {
    return labelled("Pulse Width: ", kdx::GetPulseWidth(), control);
}

std::string ClsKdxDiagnostic::GetPulseEveryNumSteps(const AxisTargets& controls) {
    return perAxis(
        controls, false,
        [this](int motor, int) -> std::array<std::string, 2> {
            const auto reply = cycle_.Ask(kdx::GetPulseEvery(motor), ReplyForm::Word,
                                          QueryCycle::PulseSettingDelay);
            return {kdx::CrToCrLf("Pulse N Steps Setting: " + reply), {}};
        },
        false);
}

std::string ClsKdxDiagnostic::GetMultifunctionUserInputs(TextTarget* control) {
    Busy busy(*this);
    const auto reply =
        kdx::WithoutCR(askAfterPrologue(kdx::GetMultifunctionInputs(), ReplyForm::Word));
    result_ = "Actual value = " + reply + CrLf +
              bitLines(kdx::WordBits(Val(reply)), MultifunctionLines, 1);
    return show(control);
}

std::string ClsKdxDiagnostic::GetAnalogInput(TextTarget* control) {
    return labelled("Analog Input Value: ", kdx::GetAnalogInput(), control);
}

std::string ClsKdxDiagnostic::GetUserOutputStates(TextTarget* control) {
    Busy busy(*this);
    const auto version =
        kdx::WithoutCR(askAfterPrologue(kdx::GetFirmwareVersion(), ReplyForm::Word));
    if (Val(version) < kdx::OutputMaskFirmware) { // an older controller is not asked "$"
        result_ =
            "Version 1.22 or higher is needed for this option. Your Version is: " + version + CrLf;
        return show(control);
    }
    result_.clear();
    const auto code =
        kdx::ReadMask(kdx::WithoutCR(cycle_.Ask(kdx::GetOutputMask(), ReplyForm::Mask)));
    result_ = maskText(code.value_or(0), UserOutputLines);
    return show(control);
}

std::string ClsKdxDiagnostic::GetOverTravel(TextTarget* control) {
    Busy busy(*this);
    const auto reply =
        kdx::WithoutCR(askAfterPrologue(kdx::GetOverTravelOrBacklash(), ReplyForm::Word));
    const double value = Val(reply);
    if (value == 0) {
        result_ = "OverTravel = Disabled\r\n";
    } else if (value == 1) {
        result_ = "OverTravel = Send capital letter O to host when hit Limit\r\n";
    } else if (value == 2) {
        result_ = "OverTravel = Stop program if hit Limit\r\n";
    } else if (value == 3) {
        result_ = "OverTravel = Send O to host and Stop program when hit Limit\r\n";
    } else {
        result_ = reply;
    }
    return show(control);
}

std::string ClsKdxDiagnostic::GetBacklash(TextTarget* control) {
    Busy busy(*this);
    const auto reply =
        kdx::WithoutCR(askAfterPrologue(kdx::GetOverTravelOrBacklash(), ReplyForm::Word));
    const double value = Val(reply);
    if (value == 0) {
        result_ = "BackLash = Disabled\r\n";
    } else if (value == 1) {
        result_ = "BackLash = 20 steps\r\n";
    } else if (value >= 2 && value <= 255) {
        // Kept as the controller's users know it: the number in this line is always 0.
        result_ = "Backlash = 0 steps\r\n";
    } else {
        result_ = reply;
    }
    return show(control);
}

std::string ClsKdxDiagnostic::GetUserInputStates(TextTarget* control) {
    Busy busy(*this);
    const auto code = kdx::ReadMask(askAfterPrologue(kdx::GetInputMask(), ReplyForm::Mask));
    result_ = code ? maskText(*code, UserInputLines) : std::string(NoInputReply);
    return show(control);
}

std::string ClsKdxDiagnostic::GetLimitStates(TextTarget* control) {
    Busy busy(*this);
    const auto code = kdx::ReadMask(askAfterPrologue(kdx::GetLimitMask(), ReplyForm::Mask));
    result_ = code ? maskText(*code, LimitLines) : std::string();
    return show(control);
}

} // namespace korval
