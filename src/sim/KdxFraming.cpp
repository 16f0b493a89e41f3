#include "sim/KdxFraming.h"

#include <algorithm>

#include "sim/ItemText.h"

namespace korval::sim {

namespace {

constexpr std::string_view Immediate = "CDEFGKOQRV()?~$@";

} // namespace

void KdxFraming::receive(std::string_view bytes, const std::function<void(const Item&)>& deliver) {
    if (silent_) {
        return;
    }
    for (const char c : bytes) {
        handleChar(c, deliver);
    }
}

std::string KdxFraming::takeOutput() {
    std::string out;
    out.swap(out_);
    return out;
}

void KdxFraming::say(const std::string& text) {
    // A full transmit buffer loses what does not fit, as a real one would.
    if (out_.size() + text.size() <= MaxOutput) {
        out_ += text;
    }
}

void KdxFraming::powerUp(bool echo) {
    echo_ = echo;
    buf_.clear();
    skipping_ = inComment_ = false;
}

bool KdxFraming::continues(char c) const {
    const auto first = std::find_if(buf_.begin(), buf_.end(), IsDigit);
    if (first == buf_.end()) {
        return true; // still spelling a word: it ends at a separator
    }
    const char last = buf_.back();
    if (IsDigit(c)) {
        return true;
    }
    if (c == 'M') {
        if (!IsDigit(last) || std::find(first, buf_.end(), 'M') != buf_.end()) {
            return false;
        }
        return TakesMotorNumber(std::string(buf_.begin(), first));
    }
    if (c == 'A') {
        return last == 'M' && buf_.rfind("MA") == std::string::npos;
    }
    if (c == '-') {
        return last == 'M' || (last == 'A' && buf_.size() > 1 && buf_[buf_.size() - 2] == 'M');
    }
    return false;
}

void KdxFraming::handleChar(char c, const std::function<void(const Item&)>& deliver) {
    // "E" echoes itself as it turns echo on.
    const bool separator = c == ',' || c == '\r';
    if (echo_ || (c == 'E' && buf_.empty())) {
        say(std::string(1, c));
    }
    if (inComment_) {
        if (c == '\r' || c == '\n') {
            inComment_ = false;
        }
        return;
    }
    if (c == '\n' || c == '\t') {
        return;
    }
    if (c == ';') {
        finishItem(deliver);
        inComment_ = true;
        return;
    }
    if (separator) {
        finishItem(deliver);
        return;
    }
    if (skipping_) {
        return;
    }
    if (!buf_.empty() && !continues(c)) {
        finishItem(deliver);
    }
    if (buf_.empty() && Immediate.find(c) != std::string_view::npos) {
        deliver(Item{std::string(1, c), true});
        return;
    }
    buf_ += c;
    if (buf_.size() > MaxItem) {
        // An item this long is nothing the controller knows: drop it whole.
        buf_.clear();
        skipping_ = true;
        return;
    }
    if (buf_ == "rsm" || buf_ == "lst") {
        finishItem(deliver);
    }
}

void KdxFraming::finishItem(const std::function<void(const Item&)>& deliver) {
    if (!skipping_ && !buf_.empty()) {
        const std::string text = buf_;
        buf_.clear();
        deliver(Item{text, false});
    }
    buf_.clear();
    skipping_ = false;
}

} // namespace korval::sim
