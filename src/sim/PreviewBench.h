#pragma once
// A virtual controller inside the program, on a virtual clock, that shows what a program will do
// before it goes to a real one: the text goes in as the driver would send it, the run is
// followed through time, and the carriage of each motor is traced against the limit switches.
// An operator is assumed at the bench, who answers a wait for the Run button or for Input 1
// after a set time. Nothing here touches a port.
#include "sim/KdxChain.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korval::sim {

struct PreviewOptions {
    long travel = 4000;           // steps from the starting place to each limit switch
    double operatorSeconds = 1.0; // until the Run button is pressed or Input 1 switched on
    int cycles = 3;               // passes of the repeated part traced
    double longestTraced = 600;   // seconds at most on the trace
    double longestTimed = 3600;   // seconds at most simulated to time a counted run
};

enum class PreviewMarkKind { Pause, WaitRunButton, WaitInput1, LimitSwitch };

struct PreviewMark {
    PreviewMarkKind kind;
    int axis = 0; // the motor at the switch; 0 for the waits of the run
    double start = 0;
    double end = 0;    // the same as start for a switch reached
    long position = 0; // the carriage there, for a switch
};

struct PreviewPoint {
    double seconds;
    long position;
    bool operator==(const PreviewPoint&) const = default;
};

struct PreviewTrace {
    int axis = 0;
    std::vector<PreviewPoint> points; // the carriage; a point where it starts or stops moving
};

enum class PreviewVerdict {
    Ends,        // the run ends by itself
    Endless,     // it loops until the Stop button ends it
    TooLong,     // still running after the longest time the preview simulates
    DoesNotFit,  // the program does not fit the controller's memory
    Fault,       // the controller stops with an error
    NothingToRun // no command of the program is stored
};

struct PreviewResult {
    PreviewVerdict verdict = PreviewVerdict::Ends;
    SimFault fault = SimFault::None;
    int program = 0; // the program that ran, or was full
    long travel = 0;
    std::vector<PreviewTrace> traces; // the motors that moved, or the one asked for
    std::vector<PreviewMark> marks;
    double traced = 0; // seconds the traces cover
    std::optional<double> cycleSeconds;
    long passes = 0; // of the repeated part, when the loop is counted: its count
    std::optional<double> totalSeconds;
    bool totalEstimated = false; // from the cycle time, the run being too long to follow
    int refused = 0;             // commands the controller refused as it stored the program
};

class PreviewBench {
public:
    explicit PreviewBench(const PreviewOptions& options = {});

    // Text as the driver puts it on the line. Every command acts at once, as on a quiet line.
    void send(std::string_view text);
    // Runs the current program and waits for its end, for at most `seconds`.
    void runAndWait(double seconds);
    long position(int axis) const { return chain_.position(axis); }

    // Starts the current program unless the text sent has started it, and follows the run.
    // `axis` is traced even when no motor moves.
    PreviewResult follow(int axis);

private:
    struct Follower;

    PreviewOptions options_;
    KdxChain chain_;
    int refused_ = 0;
    bool endless_ = false; // the program loops with "L0"
};

} // namespace korval::sim
