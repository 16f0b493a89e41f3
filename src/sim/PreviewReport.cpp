#include "sim/PreviewReport.h"

#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace korval::sim {

namespace {

constexpr double MostTravel = 16777215;
constexpr double LongestOperator = 3600;
constexpr double MostCycles = 20;

std::string faultWords(SimFault fault) {
    switch (fault) {
    case SimFault::Bus:
        return "no answer on the bus";
    case SimFault::NestedLoop:
        return "a loop inside a loop";
    case SimFault::JumpAndReturn:
        return "a jump to the program that is waiting";
    case SimFault::ContinuousIndex:
        return "a run to a limit with no switch to end it";
    case SimFault::StopButton:
        return "the stop button";
    case SimFault::InvalidMotor:
        return "a motor it does not have";
    case SimFault::BufferOverflow:
        return "too much text at once";
    case SimFault::FlashRom:
    case SimFault::Eeprom:
        return "its memory failed";
    case SimFault::MemoryFull:
        return "its program memory is full";
    case SimFault::None:
        break;
    }
    return "none";
}

std::string fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string plural(long n, const std::string& one, const std::string& many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

} // namespace

PreviewOptions ReadPreviewOptions(std::string_view travel, std::string_view operatorSeconds,
                                  std::string_view cycles) {
    PreviewOptions o;
    o.travel = static_cast<long>(std::clamp(std::round(Val(travel)), 1.0, MostTravel));
    o.operatorSeconds = std::clamp(Val(operatorSeconds), 0.0, LongestOperator);
    o.cycles = static_cast<int>(std::clamp(std::round(Val(cycles)), 1.0, MostCycles));
    return o;
}

std::string FormatSeconds(double seconds) {
    if (seconds < 60) {
        return fixed(seconds, 2) + " s";
    }
    const auto whole = static_cast<long long>(std::floor(seconds));
    if (seconds < 3600) {
        const double rest = seconds - static_cast<double>(whole / 60 * 60);
        return std::to_string(whole / 60) + " min " + (rest < 10 ? "0" : "") + fixed(rest, 1) +
               " s";
    }
    char text[64];
    std::snprintf(text, sizeof text, "%lld h %02lld min %02lld s", whole / 3600, whole / 60 % 60,
                  whole % 60);
    return text;
}

std::vector<std::string> PreviewSummary(const PreviewResult& r, const PreviewOptions& o) {
    std::vector<std::string> lines;
    const auto program = std::to_string(r.program);
    switch (r.verdict) {
    case PreviewVerdict::DoesNotFit:
        lines.push_back("Does not fit the controller's memory: program " + program +
                        " is full before the end of the text");
        break;
    case PreviewVerdict::Fault:
        lines.push_back("The controller stops with an error: " + faultWords(r.fault));
        break;
    case PreviewVerdict::NothingToRun:
        lines.push_back("Nothing to run: program " + program + " holds no commands");
        break;
    case PreviewVerdict::Endless:
    case PreviewVerdict::Ends:
    case PreviewVerdict::TooLong:
        if (r.cycleSeconds) {
            lines.push_back("Cycle time: " + FormatSeconds(*r.cycleSeconds));
        }
        break;
    }
    if (r.verdict == PreviewVerdict::Endless) {
        lines.push_back("Runs without end: only the Stop button ends it");
    } else if (r.verdict == PreviewVerdict::TooLong) {
        lines.push_back("Still running after " + FormatSeconds(o.longestTimed) +
                        ", as far as the preview follows a run");
    } else if (r.verdict == PreviewVerdict::Ends && r.totalSeconds) {
        const auto what = r.passes > 0 ? "Total time of " + plural(r.passes, "cycle", "cycles")
                                       : std::string("Total time");
        lines.push_back(what + ": " + (r.totalEstimated ? "about " : "") +
                        FormatSeconds(*r.totalSeconds) +
                        (r.totalEstimated ? ", from the cycle time" : ""));
    }
    if (r.refused > 0) {
        lines.push_back("The controller refuses " + plural(r.refused, "command", "commands") +
                        " of the program: a value it cannot take");
    }
    const bool waits = std::any_of(r.marks.begin(), r.marks.end(), [](const PreviewMark& m) {
        return m.kind == PreviewMarkKind::WaitRunButton || m.kind == PreviewMarkKind::WaitInput1;
    });
    if (waits) {
        lines.push_back("Each wait for the Run button or Input 1 is taken as answered after " +
                        FormatSeconds(o.operatorSeconds));
    }
    return lines;
}

std::string MarkName(PreviewMarkKind kind) {
    switch (kind) {
    case PreviewMarkKind::Pause:
        return "Pause";
    case PreviewMarkKind::WaitRunButton:
        return "Wait for Run Button";
    case PreviewMarkKind::WaitInput1:
        return "Wait for Input 1";
    case PreviewMarkKind::LimitSwitch:
        return "Limit switch";
    }
    return {};
}

std::string PreviewCsv(const PreviewResult& r) {
    struct Row {
        double seconds;
        std::string text;
    };
    std::vector<Row> rows;
    for (const auto& trace : r.traces) {
        for (const auto& p : trace.points) {
            rows.push_back({p.seconds, fixed(p.seconds, 3) + "," + std::to_string(trace.axis) +
                                           "," + std::to_string(p.position) + ","});
        }
    }
    for (const auto& m : r.marks) {
        const bool atSwitch = m.kind == PreviewMarkKind::LimitSwitch;
        const auto event =
            atSwitch ? MarkName(m.kind) : MarkName(m.kind) + " until " + fixed(m.end, 3);
        rows.push_back(
            {m.start, fixed(m.start, 3) + "," +
                          (atSwitch ? std::to_string(m.axis) + "," + std::to_string(m.position)
                                    : std::string(",")) +
                          "," + event});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& a, const Row& b) { return a.seconds < b.seconds; });
    std::string csv = "seconds,motor,position,event\n";
    for (const auto& row : rows) {
        csv += row.text + "\n";
    }
    return csv;
}

} // namespace korval::sim
