#pragma once
// How long the program listens for a controller's reply. A fixed wait always bounds it. In the
// quick mode a reply also ends as soon as its end mark has come and the line has then stayed
// quiet for a short gap: a few character times at the line's rate, and a margin for the
// latency of the port and of the system.
#include <cstddef>

namespace korval {

struct ReplyTiming {
    // The fixed waits alone, for a controller that pauses inside its replies.
    bool exact = false;
    double gapCharacters = 4;
    double gapMarginMs = 10;

    // Seconds of quiet that end a reply at `baud`; a rate of 0 (unknown) counts as 9600.
    double Gap(int baud) const;
    // Seconds the line takes to carry `characters` at `baud`: ten bits each.
    static double WireTime(std::size_t characters, int baud);
};

} // namespace korval
