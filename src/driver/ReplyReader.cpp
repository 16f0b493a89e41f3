#include "ReplyReader.h"

#include "core/StatusLead.h"

namespace korval::driver {

namespace {

constexpr char RunEnd = '^';

} // namespace

bool ReplyReader::refusalGoesOn(char c) const {
    if (reply_.empty()) {
        return c == 'J' || c == StatusLead;
    }
    return reply_.size() == 1 && reply_[0] == StatusLead;
}

std::string ReplyReader::feed(std::string_view bytes) {
    std::string others;
    for (const char c : bytes) {
        if (!takesEcho(c) && !takes(c)) {
            others += c;
        }
    }
    return others;
}

bool ReplyReader::takesEcho(char c) {
    // With echo on, the item comes back before (and its separator possibly after) the answer.
    if (!heard_ && !item_.empty() && c == item_[0]) {
        echoing_ = true;
    }
    if (echoing_ && echoed_ < item_.size() && c == item_[echoed_]) {
        ++echoed_;
        heard_ = true;
        return true;
    }
    return false;
}

bool ReplyReader::takes(char c) {
    if (complete_ || kind_ == ReplyKind::None) {
        return false;
    }
    if (c == RunEnd) {
        // A run that ends meanwhile says so with "^": never part of any other answer.
        if (kind_ != ReplyKind::Stored) {
            return false;
        }
        heard_ = complete_ = true;
        return true;
    }
    if (kind_ == ReplyKind::Stored && !refusalGoesOn(c)) {
        return false;
    }
    heard_ = true;
    reply_ += c;
    const bool lead = reply_[0] == StatusLead;
    switch (kind_) {
    case ReplyKind::Status:
        complete_ = !lead || reply_.size() == 2;
        break;
    case ReplyKind::Word:
        complete_ = (lead && reply_.size() == 2) || reply_ == "J" || c == '\r';
        break;
    case ReplyKind::Listing:
        complete_ = c == '\r';
        break;
    case ReplyKind::None:
    case ReplyKind::Stored:
        break;
    }
    return true;
}

} // namespace korval::driver
