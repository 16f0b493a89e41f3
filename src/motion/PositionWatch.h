#pragma once
// When the Axis Positions view reads the controller's positions. It reads while the status says
// something moves (a jog, a move, a running program), after every change of status until two
// readings agree, and once when the view opens; otherwise it sends nothing. It never reads while
// a diagnostic or a troubleshooter holds the line, nor from a controller that does not answer.
#include "PositionReading.h"

#include <array>
#include <bitset>
#include <optional>
#include <string>

namespace korval {

using AxisReadings = std::array<PositionReading, 4>;

class PositionWatch {
public:
    struct Now {
        bool shown = false;    // the view is on screen
        bool lineHeld = false; // a scan or a troubleshooter owns the line
        std::string status;    // the status panel's caption
    };

    // The view opened, or the line changed hands: read afresh, every axis again.
    void Restart();
    // Something may have moved without the status showing it (a short move ended between two
    // status polls): read until the positions settle.
    void Wake() { awake_ = true; }

    // On each tick of the view's timer: whether to read now.
    bool ShouldRead(const Now& now);
    // Whether axis 1..4 is worth asking: not once it was refused since the last restart.
    bool Asks(int motor) const;
    // What a read gave. Equal to the one before (and nothing moving): the watch goes idle.
    void Read(const AxisReadings& readings);

private:
    bool awake_ = true;
    bool moving_ = false;
    std::string lastStatus_;
    std::bitset<4> refused_;
    std::optional<AxisReadings> last_;
};

} // namespace korval
