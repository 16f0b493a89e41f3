#pragma once
// A long script goes to the controller in pieces, paced at the line's rate from this side, so
// that the program stays in charge of it: the progress can be shown as it goes, and a stop
// takes effect within a piece, with the controller left at the end of a line.
#include "link/ClsDriverKdx.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korval {

// Where `text` is cut into pieces of at most `limit` bytes: behind a line end where there is
// one, else behind a comma outside a comment, else anywhere. Each entry is the end of a piece.
std::vector<std::size_t> PieceEnds(std::string_view text, std::size_t limit);

struct SendProgress {
    std::size_t sent = 0;
    std::size_t total = 0;
    int baud = 9600;
    // At the line's rate, for what is still to go.
    double SecondsLeft() const;
    // "Sent 1200 of 80000 bytes, 1 min 22 s left at 9600 baud"
    std::string Text() const;
};

enum class SendEnd { Sent, Stopped, LineFailed };

// Sends `text` a piece at a time, each once the line has carried the one before. `going` is
// asked before each piece with the progress so far; when it says false the sending stops, and
// a CR closes whatever line the controller was reading. A refused piece (the port gone)
// ends it as well.
SendEnd SendPaced(ClsDriverKdx& kdx, ClsTimeDelay& delay, std::string_view text, int baud,
                  const std::function<bool(const SendProgress&)>& going);

} // namespace korval
