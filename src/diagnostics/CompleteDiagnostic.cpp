#include "CompleteDiagnostic.h"

#include "CommandLanguage.h"

#include "core/ClsReadWriteFile.h"
#include "scripts/ScriptText.h"

#include <vector>

namespace korval {

namespace {

constexpr const char* CrLf = "\r\n";
constexpr double StepPause = 0.1;

AxisTargets targets(std::array<TextBox, 4>& boxes) {
    return {&boxes[0], &boxes[1], &boxes[2], &boxes[3]};
}

// Progress reads "Scanning {name}" before the query and "{name} Complete" after it.
struct Step {
    std::string name;
    std::vector<TextBox*> boxes; // emptied before the query runs
    std::function<void()> query;
};

// The hourglass for the span of the scan, put back however the scan ends.
class BusyWhile {
public:
    explicit BusyWhile(BusyPointer* pointer) : pointer_(pointer) { set(true); }
    ~BusyWhile() { set(false); }
    BusyWhile(const BusyWhile&) = delete;
    BusyWhile& operator=(const BusyWhile&) = delete;

private:
    void set(bool busy) {
        if (pointer_ != nullptr) {
            pointer_->SetBusy(busy);
        }
    }
    BusyPointer* pointer_;
};

std::string banner(const char* name) {
    return std::string("**********") + name + "**********" + CrLf;
}

} // namespace

std::string ReadCurrentProgramAsIs(QueryCycle& cycle) {
    return cycle.AskAndClear(kdx::GetCurrentProgramBare(), ReplyForm::Word);
}

void RestoreCurrentProgram(QueryCycle& cycle, const std::string& kept) {
    cycle.Send(kdx::SelectProgramAsRead(kept));
}

void RefreshProgramsPanel(ClsKdxDiagnostic& diagnostic, const ProgramsPanelTargets& targets) {
    auto& cycle = diagnostic.cycle();
    const auto kept = ReadCurrentProgramAsIs(cycle);
    diagnostic.GetCurrentProgram(targets.current);
    diagnostic.GetCurrentProgramAssociate(targets.associate);
    for (int n = 0; n <= 4; ++n) {
        diagnostic.GetProgram(n, targets.program[static_cast<std::size_t>(n)]);
    }
    RestoreCurrentProgram(cycle, kept);
}

ScanResult RunCompleteDiagnostic(ClsKdxDiagnostic& diagnostic, DiagnosticBoxes& b,
                                 const ScanOptions& options) {
    auto tell = [&](const std::string& text) {
        if (options.progress) {
            options.progress(text);
        }
    };
    auto& d = diagnostic;
    std::vector<Step> steps = {
        {"Processor", {&b.processor}, [&] { d.GetProcessor(&b.processor); }},
        {"Operating Mode", {&b.operatingMode}, [&] { d.GetOperatingMode(&b.operatingMode); }},
        {"KDX Current Program",
         {&b.programCurrent},
         [&] { d.GetCurrentProgram(&b.programCurrent); }},
        {"KDX Current Program Associate",
         {&b.programCurrentAssociate},
         [&] { d.GetCurrentProgramAssociate(&b.programCurrentAssociate); }},
    };
    for (int n = 0; n <= 4; ++n) {
        auto* box = &b.program[static_cast<std::size_t>(n)];
        const auto name = "Program " + std::to_string(n);
        steps.push_back({name, {box}, [&d, n, box] { d.GetProgram(n, box); }});
    }
    auto all = [](std::array<TextBox, 4>& four) {
        return std::vector<TextBox*>{&four[0], &four[1], &four[2], &four[3]};
    };
    const std::vector<Step> rest = {
        {"Axis", all(b.axis), [&] { d.GetAxisSettings(targets(b.axis)); }},
        {"Analog Joystick Deadband", {&b.deadband}, [&] { d.GetDeadBand(&b.deadband); }},
        {"Analog Joystick", all(b.joystickAnalog),
         [&] { d.GetJoystickAnalogSettings(targets(b.joystickAnalog)); }},
        {"Digital Joystick", all(b.joystickDigital),
         [&] { d.GetJoystickDigitalSettings(targets(b.joystickDigital)); }},
        {"Output Pulse Width", {&b.pulseWidth}, [&] { d.GetPulseWidth(&b.pulseWidth); }},
        {"Output Pulse", all(b.outputPulse),
         [&] { d.GetPulseEveryNumSteps(targets(b.outputPulse)); }},
        {"Multifunction User Inputs",
         {&b.multifunctionInputs},
         [&] { d.GetMultifunctionUserInputs(&b.multifunctionInputs); }},
        {"Analog Input", {&b.analogInput}, [&] { d.GetAnalogInput(&b.analogInput); }},
        {"User Outputs", {&b.userOutputs}, [&] { d.GetUserOutputStates(&b.userOutputs); }},
        {"Overtravel", {&b.overTravel}, [&] { d.GetOverTravel(&b.overTravel); }},
        {"Backlash", {&b.backlash}, [&] { d.GetBacklash(&b.backlash); }},
        {"User Inputs", {&b.userInputs}, [&] { d.GetUserInputStates(&b.userInputs); }},
        {"Limit States", {&b.limitStates}, [&] { d.GetLimitStates(&b.limitStates); }},
    };
    steps.insert(steps.end(), rest.begin(), rest.end());

    const BusyWhile busy(options.pointer);
    auto& cycle = d.cycle();
    const int answeredBefore = cycle.Answered();
    cycle.ClearRanOn();
    ScanResult result;
    auto run = [](const Step& step) {
        for (auto* box : step.boxes) {
            box->text.clear();
        }
        step.query();
    };
    const auto count = static_cast<int>(steps.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto& step = steps[i];
        if (options.stopRequested && options.stopRequested()) {
            result.stopped = true;
            result.reachedStep = step.name;
            tell(std::string("Scan Stopped") + CrLf);
            break;
        }
        tell("Scanning " + step.name + CrLf);
        run(step);
        if (cycle.ReplyRanOn() && !cycle.Exact()) {
            // A reply went on after its end: it was this step's or the last of the step before.
            // Both are asked again with the fixed waits, which the rest of the scan keeps to.
            cycle.KeepExact(true);
            const auto from = i > 0 ? i - 1 : i;
            result.exactFrom = steps[from].name;
            for (auto again = from; again <= i; ++again) {
                run(steps[again]);
            }
        }
        if (cycle.LineFailed()) {
            // Empty replies from a dead line are no facts: stop at once.
            result.lineFailed = true;
            result.reachedStep = step.name;
            break;
        }
        cycle.Pause(StepPause);
        tell(step.name + " Complete" + CrLf);
        if (options.stepDone) {
            options.stepDone(static_cast<int>(i) + 1, count);
        }
    }
    if (result.Complete()) {
        cycle.Pause(StepPause);
        tell(std::string("Scan Complete") + CrLf);
        tell("Generating Report");
        cycle.Pause(StepPause);
    }
    cycle.KeepExact(false);
    result.report = BuildDiagnosticReport(b);
    if (!result.Complete()) {
        result.report += IncompleteReportNote(result);
    }
    result.answered = cycle.Answered() - answeredBefore;
    return result;
}

std::string IncompleteReportNote(const ScanResult& result) {
    return std::string(CrLf) + CrLf + "Report incomplete: " +
           (result.lineFailed ? "the serial line failed" : "the scan was stopped") +
           " during \"Scanning " + result.reachedStep + "\"." + CrLf;
}

std::string BuildDiagnosticReport(const DiagnosticBoxes& b) {
    std::string r = std::string(20, '*') + " Diagnostic Results " + std::string(20, '*') + CrLf;
    r += CrLf;
    r += banner(" Processor ") + b.processor.text + CrLf;
    r += banner(" Operating Mode ") + b.operatingMode.text + CrLf;
    r += banner(" Programs ") + b.programCurrent.text + b.programCurrentAssociate.text;
    for (const auto& program : b.program) {
        r += program.text + CrLf;
    }
    r += banner(" Axis ");
    for (const auto& axis : b.axis) {
        r += axis.text + CrLf;
    }
    r += banner(" Analog Joystick ") + b.deadband.text;
    for (const auto& axis : b.joystickAnalog) {
        r += axis.text;
    }
    r += CrLf;
    r += banner(" Digital Joystick ");
    for (const auto& axis : b.joystickDigital) {
        r += axis.text;
    }
    r += CrLf;
    r += banner(" Outputs ") + b.pulseWidth.text; // the pulse settings, not the output states
    for (const auto& axis : b.outputPulse) {
        r += axis.text;
    }
    r += CrLf;
    r += banner(" Multifunction Inputs ") + b.multifunctionInputs.text + CrLf;
    r += banner(" Analog Input ") + b.analogInput.text + CrLf;
    r += banner(" User Outputs ") + b.userOutputs.text + CrLf;
    r += banner(" Overtravel and Backlash ") + b.overTravel.text + b.backlash.text + CrLf;
    r += banner(" User Inputs ") + b.userInputs.text + CrLf;
    r += banner(" Limit States ") + b.limitStates.text; // the file ends with the last state
    return r;
}

std::optional<std::string> DiagnosticReportFileName(const std::string& chosen) {
    if (chosen.empty()) {
        return std::nullopt;
    }
    return TxtFileName(chosen);
}

std::string SaveDiagnosticReport(const std::string& path, const std::string& report) {
    ClsReadWriteFile file;
    const bool saved =
        file.CreateOutputFile(path) && file.WriteToOutputFile(report) && file.CloseOutputFile();
    return saved ? std::string() : file.LastError();
}

} // namespace korval
