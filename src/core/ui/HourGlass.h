#pragma once
// The hourglass pointer for the span of a slow step, put back however the step ends.
#include <QApplication>

namespace korval {

class HourGlass {
public:
    HourGlass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~HourGlass() { QApplication::restoreOverrideCursor(); }
    HourGlass(const HourGlass&) = delete;
    HourGlass& operator=(const HourGlass&) = delete;
};

} // namespace korval
