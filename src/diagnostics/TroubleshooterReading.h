#pragma once
// One troubleshooter's live reading: each tick asks its byte without the prologue (so that a
// running program goes on), reads with the port cleared behind it, takes out the echo, and
// sets the eight lamps and labels, each only when it changes, so that nothing flickers. A
// reply that holds nothing but the echo leaves everything as it was. The changes go into the
// timeline. The windows paint what this holds; the command line prints the timeline.
#include "BitTimeline.h"
#include "TroubleshooterKind.h"

#include "core/ClsTimeDelay.h"
#include "link/ClsDriverKdx.h"

#include <array>
#include <optional>
#include <string>

namespace korval {

enum class TickOutcome {
    Read,        // the reply gave bits
    NoReply,     // nothing but the echo came back: the display stays as it was
    OldFirmware, // the outputs troubleshooter met a controller without "$"; nothing was asked
};

class TroubleshooterReading {
public:
    static constexpr int Bits = 8;
    static constexpr double ReplyDelay = 0.1;
    // How often a troubleshooter asks: its window's timer, and the command line's watch.
    static constexpr int TickMs = 250;
    static constexpr double TickSeconds = TickMs / 1000.0;

    TroubleshooterReading(TroubleshooterKind kind, ClsDriverKdx& driver, ClsTimeDelay& delay);

    // The clock and the timeline start again: the troubleshooter has just been opened.
    void Restart();
    TickOutcome Tick();

    TroubleshooterKind Kind() const { return kind_; }
    LampPicture Lamp(int bit) const { return lamps_[index(bit)]; }
    // "0" or "1" as the reply gave it, empty before the first reading.
    const std::string& Label(int bit) const { return labels_[index(bit)]; }
    const BitTimeline& Timeline() const { return timeline_; }

    // The message the outputs troubleshooter shows on an older controller.
    static constexpr const char* OldFirmwareMessage =
        "Outputs Troubleshooter cannot be used with a KDX version lower than 1.22";
    static constexpr const char* OldFirmwareTitle = "Outputs Error";

private:
    static std::size_t index(int bit) { return static_cast<std::size_t>(bit) & 7U; }
    bool firmwareTooOld();
    TickOutcome tickLimits();
    TickOutcome tickByte();
    void setLabel(int bit, const std::string& text);
    double elapsed();

    TroubleshooterKind kind_;
    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
    WaitContext::Clock::time_point opened_;
    std::array<LampPicture, Bits> lamps_{};
    std::array<std::string, Bits> labels_;
    std::array<bool, Bits> seen_{}; // read since Restart: only then is a new value a change
    BitTimeline timeline_;
};

// The eight bits of a reply, bit 0 first, after the echo is taken out; empty when nothing is
// left. A multi-function word of 256 or more gives more than eight; only the first eight count.
std::optional<std::string> BitsOfReply(TroubleshooterKind kind, std::string reply);

// The picture for a bit character; Unset for anything but "0" and "1", which leaves a lamp be.
LampPicture LampFor(TroubleshooterKind kind, char bit);

} // namespace korval
