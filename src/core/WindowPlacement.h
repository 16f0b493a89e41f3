#pragma once
// Where a tool window opens inside the main window: where it was last, unless another open
// window already stands there; then on the first step of a cascade that none takes.
#include <vector>

namespace korval {

struct WindowSpot {
    int x = 0;
    int y = 0;
    bool operator==(const WindowSpot&) const = default;
};

// `room` is the farthest a window's corner may go and still show whole; `step` the cascade's
// offset, about a title bar's height. Two corners closer than half a step cover each other.
WindowSpot OpenSpot(WindowSpot own, const std::vector<WindowSpot>& open, WindowSpot room, int step);

} // namespace korval
