#include "BitTimeline.h"

#include "TroubleshooterKind.h"

#include <cstdio>

namespace korval {

void BitTimeline::Note(const BitChange& change) {
    changes_.push_back(change);
    ++noted_;
    if (changes_.size() > Capacity) {
        changes_.pop_front();
    }
}

void BitTimeline::Clear() {
    changes_.clear();
    noted_ = 0;
}

std::vector<BitChange> BitTimeline::NewSince(std::size_t& seen) const {
    const std::size_t fresh = noted_ > seen ? noted_ - seen : 0;
    const std::size_t kept = fresh < changes_.size() ? fresh : changes_.size();
    seen = noted_;
    return {changes_.end() - static_cast<std::ptrdiff_t>(kept), changes_.end()};
}

std::string TimelineLine(const BitChange& change, const TroubleshooterFace& face) {
    char time[32];
    std::snprintf(time, sizeof time, "%7.2f s", change.seconds);
    const auto bit = static_cast<std::size_t>(change.bit) & 7U;
    return std::string(time) + "  bit " + std::to_string(bit) + "  " + face.rows[bit] + "  " +
           change.from + " -> " + change.to;
}

std::string TimelineText(const BitTimeline& timeline, const TroubleshooterFace& face) {
    std::string text;
    for (const auto& change : timeline.Changes()) {
        text += TimelineLine(change, face) + "\r\n";
    }
    return text;
}

} // namespace korval
