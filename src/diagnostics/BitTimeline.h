#pragma once
// The bit changes a troubleshooter saw since it was opened, so that a bouncing switch or an
// input that flickered for one tick can still be seen after the fact. Only the latest changes
// are kept.
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace korval {

struct TroubleshooterFace;

struct BitChange {
    double seconds; // since the troubleshooter was opened
    int bit;        // 0 to 7
    char from;
    char to;
    bool operator==(const BitChange&) const = default;
};

class BitTimeline {
public:
    static constexpr std::size_t Capacity = 200;

    void Note(const BitChange& change);
    void Clear();
    const std::deque<BitChange>& Changes() const { return changes_; }
    // The changes noted after the first `seen` of them, for a view that adds lines as they come;
    // `seen` moves on to all noted so far. Changes already dropped are not handed out.
    std::vector<BitChange> NewSince(std::size_t& seen) const;

private:
    std::deque<BitChange> changes_;
    std::size_t noted_ = 0; // every change since Clear, dropped ones included
};

// One change as a line, with no line end: "   1.25 s  bit 4  Input 1  1 -> 0".
std::string TimelineLine(const BitChange& change, const TroubleshooterFace& face);
// The kept changes, one line each, CR LF behind every line: what the window copies.
std::string TimelineText(const BitTimeline& timeline, const TroubleshooterFace& face);

} // namespace korval
