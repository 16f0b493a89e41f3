#pragma once
// The controller's two byte streams. In: echo, comments, the cutting of text into items and
// immediate commands, and "#" for a private exchange. Out: the transmit buffer and the braces
// that frame a private answer.
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
        bool priv = false;      // sent after "#": answered in braces, never echoed
    };

    explicit KdxFraming(bool echo) : echo_(echo) {}

    // Hands each item to `deliver` as soon as it is complete.
    void receive(std::string_view bytes, const std::function<void(const Item&)>& deliver);
    std::string takeOutput();
    bool hasOutput() const { return !out_.empty(); }

    void say(const std::string& text);
    void reply(const std::string& text, bool priv);
    // A private item is always answered, if only by an empty frame.
    void replyNothing(bool priv);

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
    bool priv_ = false;
    bool privTail_ = false; // the last item was private: its separator is not echoed
    bool inComment_ = false;
    std::string out_;
    bool echo_;
    bool silent_ = false;
};

} // namespace korval::sim
