#pragma once
// The complete diagnostic: every query the information panels can show, in one run, with its
// progress told as it goes, and then the report. The window and the command line both run it.
#include "ClsKdxDiagnostic.h"

#include <functional>
#include <optional>
#include <string>

namespace korval {

// The texts of the information panels, as the scan leaves them; the window copies them into
// its panels, and the report is read from them.
struct DiagnosticBoxes {
    TextBox processor, operatingMode;
    TextBox programCurrent, programCurrentAssociate;
    std::array<TextBox, 5> program;
    std::array<TextBox, 4> axis;
    TextBox deadband;
    std::array<TextBox, 4> joystickAnalog, joystickDigital;
    TextBox pulseWidth;
    std::array<TextBox, 4> outputPulse;
    TextBox multifunctionInputs, analogInput, userOutputs;
    TextBox overTravel, backlash;
    TextBox userInputs, limitStates;
};

// Text added to the progress box, exactly as it is added ("Scanning Axis" and CR LF, ...).
using ScanProgress = std::function<void(const std::string& added)>;

struct ScanOptions {
    ScanProgress progress;
    BusyPointer* pointer = nullptr;
    // Asked before each step: true ends the scan there (the Stop button, an interrupt), with
    // "Scan Stopped".
    std::function<bool()> stopRequested;
    // Told after each step: how many of the steps are done, and how many there are.
    std::function<void(int done, int count)> stepDone;
};

struct ScanResult {
    std::string report;
    int answered = 0;        // queries that got any reply
    std::string reachedStep; // the step running when the scan ended early ("Axis")
    bool lineFailed = false; // the port itself failed: unplugged, hung up, a read error
    bool stopped = false;    // ended at the user's request
    // Where the scan went over to the fixed waits, because a reply went on after its end in the
    // quick mode; empty when it did not.
    std::string exactFrom;
    bool Complete() const { return !lineFailed && !stopped; }
};

// Runs the 22 steps over `diagnostic`, filling `boxes`, and gives back the report. The scan
// leaves the last listed program (4) current. A scan that ends early still gives the report
// of what it read, marked as incomplete at its end.
ScanResult RunCompleteDiagnostic(ClsKdxDiagnostic& diagnostic, DiagnosticBoxes& boxes,
                                 const ScanOptions& options = {});

// The report from the panel texts: single-byte text with CR LF line ends.
std::string BuildDiagnosticReport(const DiagnosticBoxes& boxes);
// The line that closes the report of a scan that ended early.
std::string IncompleteReportNote(const ScanResult& result);

// The current program as the controller gives it to "PM" and CR, kept as it came.
std::string ReadCurrentProgramAsIs(QueryCycle& cycle);
// Selects again the program read by ReadCurrentProgramAsIs.
void RestoreCurrentProgram(QueryCycle& cycle, const std::string& kept);

// The Programs panel's refresh: the current program read as it is, the current program and its
// associate, the five listings, then the program that was current selected again.
struct ProgramsPanelTargets {
    TextTarget* current = nullptr;
    TextTarget* associate = nullptr;
    std::array<TextTarget*, 5> program{};
};
void RefreshProgramsPanel(ClsKdxDiagnostic& diagnostic, const ProgramsPanelTargets& targets);

// The file a chosen report name is saved as: every ".txt" taken out, one put at the end; no
// file at all for an empty name.
std::optional<std::string> DiagnosticReportFileName(const std::string& chosen);

// Writes the report's bytes whole, or leaves the file as it was. Empty on success, else why
// the report could not be saved, in words for the user.
std::string SaveDiagnosticReport(const std::string& path, const std::string& report);

} // namespace korval
