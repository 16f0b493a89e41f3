#pragma once
// The controller's settings and states as readable text: one method for each thing that can be
// asked. Each query method stops whatever the controller runs (its prologue starts with "K"),
// writes its text to the display target when there is one, and returns it.
#include "QueryCycle.h"

#include "core/TextTarget.h"
#include "link/ClsKdxCommands.h"

#include <array>
#include <functional>
#include <string>

namespace korval {

// A target that only keeps the text: for the complete diagnostic and for the command line.
class TextBox final : public TextTarget {
public:
    void SetText(const std::string& value) override { text = value; }
    std::string text;
};

// The hourglass while a method runs; the window gives one, the command line need not.
class BusyPointer {
public:
    virtual ~BusyPointer() = default;
    virtual void SetBusy(bool busy) = 0;
};

// The commands formatter (text, comment flag), as the commands library lays out a listing.
using CommandsFormatter = Formatter;

// Display targets of motors 1 to 4; any of them may be absent.
using AxisTargets = std::array<TextTarget*, 4>;

class ClsKdxDiagnostic {
public:
    // Without a formatter a listing is shown as the controller sent it; without a timing the
    // queries keep to their fixed waits (see QueryCycle).
    ClsKdxDiagnostic(ClsDriverKdx& driver, ClsTimeDelay& delay, CommandsFormatter format = {},
                     BusyPointer* pointer = nullptr, const ReplyTiming* timing = nullptr);

    std::string GetProcessor(TextTarget* control = nullptr);
    std::string GetOperatingMode(TextTarget* control = nullptr);
    std::string GetCurrentProgram(TextTarget* control = nullptr);
    std::string GetCurrentProgramAssociate(TextTarget* control = nullptr);
    std::string GetProgram(int program, TextTarget* control = nullptr);
    int GetNumberOfControls(); // 0 no answer, 1 two motors, 2 four motors
    std::string GetAxisSettings(const AxisTargets& controls = {});
    std::string GetDeadBand(TextTarget* control = nullptr);
    std::string GetJoystickAnalogSettings(const AxisTargets& controls = {});
    // Asks nothing. A value that is not a whole number 0 to 24 leaves the shared result text as
    // the previous step left it and hands that back.
    std::string SortAnalogJoystickSetting(const std::string& setting);
    std::string GetJoystickDigitalSettings(const AxisTargets& controls = {});
    std::string GetPulseWidth(TextTarget* control = nullptr);
    std::string GetPulseEveryNumSteps(const AxisTargets& controls = {});
    std::string GetMultifunctionUserInputs(TextTarget* control = nullptr);
    std::string GetAnalogInput(TextTarget* control = nullptr);
    std::string GetUserOutputStates(TextTarget* control = nullptr);
    std::string GetOverTravel(TextTarget* control = nullptr);
    std::string GetBacklash(TextTarget* control = nullptr);
    std::string GetUserInputStates(TextTarget* control = nullptr);
    std::string GetLimitStates(TextTarget* control = nullptr);

    // What GetUserInputStates shows when "~," brings nothing back.
    static constexpr const char* NoInputReply = "No reply to the user input query.\r\n";

    QueryCycle& cycle() { return cycle_; }

private:
    class Busy;
    // The query frame shared by the single-text methods: prologue, empty result, one ask.
    std::string askAfterPrologue(std::string_view query, ReplyForm form,
                                 double wait = QueryCycle::ReplyDelay);
    std::string labelled(const char* label, std::string_view query, TextTarget* control);
    std::string show(TextTarget* control);
    // The per-axis form: count, then each motor's items; empties 3 and 4 on two motors.
    using MotorItems = std::function<std::array<std::string, 2>(int motor, int count)>;
    std::string perAxis(const AxisTargets& controls, bool secondPrologueOnTwo,
                        const MotorItems& items, bool twoItems);

    QueryCycle cycle_;
    CommandsFormatter format_;
    BusyPointer* pointer_;
    int busyDepth_ = 0;
    // The one scratch text every method builds in; SortAnalogJoystickSetting may hand back
    // whatever an earlier step left here.
    std::string result_;
};

} // namespace korval
