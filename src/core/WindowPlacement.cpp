#include "WindowPlacement.h"

#include <algorithm>
#include <cstdlib>

namespace korval {

namespace {

bool covered(WindowSpot spot, const std::vector<WindowSpot>& open, int step) {
    return std::any_of(open.begin(), open.end(), [&](const WindowSpot& o) {
        return 2 * std::abs(o.x - spot.x) < step && 2 * std::abs(o.y - spot.y) < step;
    });
}

} // namespace

WindowSpot OpenSpot(WindowSpot own, const std::vector<WindowSpot>& open, WindowSpot room,
                    int step) {
    if (!covered(own, open, step)) {
        return own;
    }
    step = std::max(step, 1);
    // Down the diagonal as far as the room allows, then the next diagonal a few steps right.
    const int perRun = std::max(1, std::min(std::max(room.x, 0), std::max(room.y, 0)) / step + 1);
    const int runs = std::max(1, std::max(room.x, 0) / (3 * step) + 1);
    for (int k = 0; k < perRun * runs; ++k) {
        const WindowSpot spot{(k % perRun) * step + (k / perRun) * 3 * step, (k % perRun) * step};
        if (!covered(spot, open, step)) {
            return spot;
        }
    }
    return {0, 0}; // every step taken: the first, as a cascade would
}

} // namespace korval
