#pragma once
// Marks the line as owned by a scan or a troubleshooter for the life of the object, so that the
// terminal's reader and the program's own pollers keep off it meanwhile.
#include "KorvalServices.h"

namespace korval {

class LineHold {
public:
    LineHold() { ++App().lineHeld; }
    ~LineHold() { --App().lineHeld; }
    LineHold(const LineHold&) = delete;
    LineHold& operator=(const LineHold&) = delete;
};

} // namespace korval
