#pragma once
// The controller's two byte streams. In: echo, comments, the cutting of text into items and
// immediate commands. Out: the transmit buffer.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace korval::sim {

class KdxFraming {
public:
    static constexpr std::size_t MaxItem = 64;
    static constexpr std::size_t MaxOutput = 64 * 1024;

    struct Item {
        std::string text;
        bool immediate = false; // one character that acts at once, with no separator
    };

    explicit KdxFraming(bool echo) : echo_(echo) {}

    // Hands each item to `deliver` as soon as it is complete.
    void receive(std::string_view bytes, const std::function<void(const Item&)>& deliver);
    std::string takeOutput();
    bool hasOutput() const { return !out_.empty(); }

    void say(const std::string& text);

    bool echo() const { return echo_; }
    void setEcho(bool echo) { echo_ = echo; }
    bool silent() const { return silent_; }
    void setSilent(bool silent) { silent_ = silent; }
    // Power-up: echo as the options say, and no half-read item.
    void powerUp(bool echo);

private:
    void handleChar(char c, const std::function<void(const Item&)>& deliver);
    void finishItem(const std::function<void(const Item&)>& deliver);
    bool continues(char c) const;

    std::string buf_;
    bool skipping_ = false;
    bool inComment_ = false;
    std::string out_;
    bool echo_;
    bool silent_ = false;
};

} // namespace korval::sim
