#pragma once
// The line from the controller back to the host. What the chain says goes out at the line's
// rate, ten bits a character; and the pacer can play a controller that is slow to answer: each
// reply (what the chain says into an idle line) starts late, its characters spaced apart, and
// paused before its middle character. Time is the caller's, in microseconds.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace korval::sim {

struct SimOptions;

class LinePacer {
public:
    LinePacer(int baud, const SimOptions& options);

    void add(std::string_view bytes, std::int64_t nowMicros);
    // The characters the line has carried by `nowMicros`, in order.
    std::string take(std::int64_t nowMicros);
    std::size_t waiting() const { return queue_.size(); }
    void clear() { queue_.clear(); }

private:
    struct Timed {
        char c;
        double due; // microseconds
    };

    double characterTime_;
    double delay_;
    double spacing_;
    double pause_;
    std::deque<Timed> queue_;
    double lineFree_ = 0; // when the last character has left the line
};

} // namespace korval::sim
