#pragma once
// A motion preview drawn as a chart: the carriage of each motor against time between the two
// limit switches, the pauses and the waits for the operator as bands, each switch reached as a
// point.
#include "sim/PreviewBench.h"

#include <string>
#include <vector>

class QChart;
class QWidget;

namespace korval {

// A new chart, owned by the caller (or by the view it is given to).
QChart* MakePreviewChart(const sim::PreviewResult& result);

// The chart with the summary under it, as the preview view shows them, saved as a PNG picture.
// False when the picture could not be written.
bool SavePreviewPicture(const sim::PreviewResult& result, const std::vector<std::string>& summary,
                        const std::string& path);

} // namespace korval
