#include "TerminalTranscript.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace korval {

namespace {

// Less common ground than this between the old text and the new is chance, not a kept tail.
constexpr std::size_t TrustedOverlap = 256;

bool lineEnd(char c) {
    return c == '\r' || c == '\n';
}

} // namespace

TerminalTranscript::TerminalTranscript(std::size_t byteLimit, std::size_t lineLimit)
    : byteLimit_(std::max<std::size_t>(byteLimit, 1)),
      lineLimit_(std::max<std::size_t>(lineLimit, 1)) {}

void TerminalTranscript::Observe(const std::string& terminal, const std::string& time) {
    const auto fresh = NewTerminalBytes(seen_, terminal);
    seen_ = terminal;
    add(Direction::Received, fresh, time, false);
    keepWithinLimit();
}

void TerminalTranscript::Sent(std::string_view bytes, const std::string& time) {
    add(Direction::Sent, bytes, time, true);
    keepWithinLimit();
}

void TerminalTranscript::Finish() {
    if (!lines_.empty() && !lastDone_) {
        lastDone_ = true;
        if (done_) {
            done_(lines_.back());
        }
    }
}

void TerminalTranscript::Clear() {
    Finish();
    lines_.clear();
    bytes_ = 0;
    seen_.clear();
    lastDone_ = false;
}

void TerminalTranscript::begin(Direction direction, const std::string& time) {
    Finish();
    lastDone_ = false;
    lines_.push_back({direction, time, {}, false});
}

void TerminalTranscript::keepWithinLimit() {
    if (bytes_ <= byteLimit_) {
        return;
    }
    // Down to nine tenths, so that the window redraws the whole text only now and then. The
    // last line stays, however long: it may still grow.
    while (bytes_ > byteLimit_ / 10 * 9 && lines_.size() > 1) {
        bytes_ -= lines_.front().bytes.size();
        lines_.pop_front();
    }
}

void TerminalTranscript::add(Direction direction, std::string_view bytes, const std::string& time,
                             bool newLine) {
    for (const char c : bytes) {
        auto* last = lines_.empty() ? nullptr : &lines_.back();
        if (!newLine && last != nullptr && last->direction == direction && last->complete &&
            c == '\n' && last->bytes.back() == '\r') {
            last->bytes += c; // CR LF ends one line, even when the two come apart
            ++bytes_;
            continue;
        }
        if (newLine || last == nullptr || last->complete || last->direction != direction ||
            last->bytes.size() >= lineLimit_) {
            begin(direction, time);
            newLine = false;
        }
        lines_.back().bytes += c;
        lines_.back().complete = lineEnd(c);
        ++bytes_;
    }
}

std::string TerminalTranscript::Render(const TerminalView& view) const {
    std::string out;
    const TranscriptLine* shown = nullptr;
    for (const auto& line : lines_) {
        if (line.direction == Direction::Sent && !view.sent) {
            continue;
        }
        if (shown != nullptr) {
            out += '\n';
        }
        out += RenderLine(line, view);
        shown = &line;
    }
    if (shown != nullptr && shown->complete) {
        out += '\n';
    }
    return out;
}

std::string RenderLine(const TranscriptLine& line, const TerminalView& view) {
    std::string out;
    if (view.times) {
        out += line.time + ' ';
    }
    if (view.sent) {
        out += line.direction == Direction::Sent ? "> " : "< ";
    }
    if (view.codes) {
        return out + WithCodes(line.bytes);
    }
    std::string_view body = line.bytes;
    while (!body.empty() && lineEnd(body.back())) {
        body.remove_suffix(1);
    }
    return out.append(body);
}

std::string WithCodes(std::string_view bytes) {
    static constexpr char Hex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            out += "<CR>";
        } else if (c == '\n') {
            out += "<LF>";
        } else if (c == '\t') {
            out += "<TAB>";
        } else if (byte < 0x20 || byte >= 0x7F) {
            out += {'<', Hex[byte >> 4], Hex[byte & 0x0F], '>'};
        } else {
            out += c;
        }
    }
    return out;
}

std::string NewTerminalBytes(std::string_view before, std::string_view now) {
    if (now.starts_with(before)) {
        return std::string(now.substr(before.size()));
    }
    if (before.size() < TrustedOverlap || now.size() < TrustedOverlap) {
        return std::string(now); // emptied since, and filled again
    }
    // The longest end of `before` that `now` begins with: the prefix function of `now`, run
    // over `before`, in time linear in both.
    std::vector<std::size_t> border(now.size(), 0);
    for (std::size_t i = 1, k = 0; i < now.size(); ++i) {
        while (k > 0 && now[i] != now[k]) {
            k = border[k - 1];
        }
        if (now[i] == now[k]) {
            ++k;
        }
        border[i] = k;
    }
    std::size_t matched = 0;
    for (const char c : before) {
        while (matched > 0 && (matched == now.size() || now[matched] != c)) {
            matched = border[matched - 1];
        }
        if (matched < now.size() && now[matched] == c) {
            ++matched;
        }
    }
    return std::string(now.substr(matched >= TrustedOverlap ? matched : 0));
}

std::string ClockText(std::chrono::system_clock::time_point at) {
    using namespace std::chrono;
    const auto seconds = system_clock::to_time_t(at);
    const auto ms = duration_cast<milliseconds>(at.time_since_epoch()).count() % 1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min,
                  local.tm_sec, static_cast<int>(ms));
    return text;
}

} // namespace korval
