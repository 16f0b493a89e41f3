#pragma once
// A preview in words and as a table: what the window shows under its chart, what the command
// line prints, and the CSV file it writes.
#include "sim/PreviewBench.h"

#include <string>
#include <string_view>
#include <vector>

namespace korval::sim {

// The preview's settings as typed into their boxes, read leniently and held to what makes
// sense: a travel of 1 to 16777215 steps, an operator of 0 to 3600 seconds, 1 to 20 cycles.
PreviewOptions ReadPreviewOptions(std::string_view travel, std::string_view operatorSeconds,
                                  std::string_view cycles);

// "0.25 s", "2 min 05.0 s", "1 h 02 min 03 s".
std::string FormatSeconds(double seconds);

// One line each: the cycle time, the total time of a counted run, or why there is none.
std::vector<std::string> PreviewSummary(const PreviewResult& result, const PreviewOptions& options);

// "seconds,motor,position,event": each traced point, and each mark with its event.
std::string PreviewCsv(const PreviewResult& result);

// The name of a mark's kind as the chart's legend shows it.
std::string MarkName(PreviewMarkKind kind);

} // namespace korval::sim
