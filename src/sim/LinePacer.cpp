#include "sim/LinePacer.h"

#include "sim/SimOptions.h"

#include <algorithm>

namespace korval::sim {

LinePacer::LinePacer(int baud, const SimOptions& options)
    : characterTime_(10e6 / baud), delay_(options.replyDelayMs * 1000.0),
      spacing_(options.charSpacingMs * 1000.0), pause_(options.replyPauseMs * 1000.0) {}

void LinePacer::add(std::string_view bytes, std::int64_t nowMicros) {
    if (bytes.empty()) {
        return;
    }
    const auto now = static_cast<double>(nowMicros);
    const bool reply = queue_.empty();
    // A reply waits for its delay; more said while one goes out follows it at the line's rate.
    double due = reply ? std::max(now + delay_, lineFree_) : queue_.back().due + characterTime_;
    const std::size_t middle = reply && bytes.size() >= 2 ? bytes.size() / 2 : bytes.size();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i > 0) {
            due += std::max(characterTime_, reply ? spacing_ : 0.0);
        }
        if (i == middle) {
            due += pause_;
        }
        queue_.push_back({bytes[i], due});
    }
    lineFree_ = due + characterTime_;
}

std::string LinePacer::take(std::int64_t nowMicros) {
    std::string out;
    while (!queue_.empty() && queue_.front().due <= static_cast<double>(nowMicros)) {
        out += queue_.front().c;
        queue_.pop_front();
    }
    return out;
}

} // namespace korval::sim
