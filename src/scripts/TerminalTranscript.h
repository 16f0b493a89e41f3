#pragma once
// The terminal's session as lines: each with the time its first byte came or went, what was
// sent kept apart from what the controller sent, and a view that can show control characters.
// The terminal shows it when the user asks for more than the controller's raw text.
#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace korval {

enum class Direction { Received, Sent };

struct TranscriptLine {
    Direction direction = Direction::Received;
    std::string time;      // "hh:mm:ss.mmm" of its first byte
    std::string bytes;     // as they came or went, the line end included
    bool complete = false; // ended by CR, LF or CR LF
};

// The terminal's view options, each a check box of its own.
struct TerminalView {
    bool sent = false;  // sent lines shown: "> " before them, "< " before the received ones
    bool times = false; // each line begins with its time
    bool codes = false; // control characters and bytes outside printable ASCII as <CR>, <CB>
    // With none of them the terminal shows the controller's text as it stands.
    bool Any() const { return sent || times || codes; }
};

class TerminalTranscript {
public:
    // Called once for each line that can grow no more: the next has begun, or Finish came.
    using LineDone = std::function<void(const TranscriptLine&)>;

    // The transcript keeps the newest `byteLimit` bytes or so; a line that runs on without an
    // end is cut into pieces of `lineLimit` bytes, each with its own time.
    explicit TerminalTranscript(std::size_t byteLimit = 2 * 65535, std::size_t lineLimit = 1024);
    void OnLineDone(LineDone done) { done_ = std::move(done); }

    // The driver's whole terminal text: what it holds beyond the last look came at `time`.
    void Observe(const std::string& terminal, const std::string& time);
    // Bytes that went to the controller; they begin a line of their own.
    void Sent(std::string_view bytes, const std::string& time);
    // The last line is passed on as done, as it stands.
    void Finish();
    // The terminal was emptied: the lines go, the last one passed on first.
    void Clear();

    std::string Render(const TerminalView& view) const;
    const std::deque<TranscriptLine>& Lines() const { return lines_; }

private:
    void add(Direction direction, std::string_view bytes, const std::string& time, bool newLine);
    void begin(Direction direction, const std::string& time);

    void keepWithinLimit();

    std::size_t byteLimit_;
    std::size_t lineLimit_;
    std::size_t bytes_ = 0; // in all the lines
    std::deque<TranscriptLine> lines_;
    bool lastDone_ = false; // the last line was passed on by Finish
    std::string seen_;      // the terminal text at the last look
    LineDone done_;
};

// One line as the view shows it, without a line break.
std::string RenderLine(const TranscriptLine& line, const TerminalView& view);

// CR, LF and tab by name, every other byte outside printable ASCII as two hex digits: "<CB>".
std::string WithCodes(std::string_view bytes);

// What `now` holds beyond `before`. The driver keeps only the tail of a long text, so `now` may
// begin with a long end of `before` instead of all of it; otherwise all of `now` is new.
std::string NewTerminalBytes(std::string_view before, std::string_view now);

// A moment as the transcript writes it, local time: "hh:mm:ss.mmm".
std::string ClockText(std::chrono::system_clock::time_point at);

} // namespace korval
