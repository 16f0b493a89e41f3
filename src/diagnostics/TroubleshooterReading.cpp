#include "TroubleshooterReading.h"

#include "CommandLanguage.h"

#include "core/Numbers.h"
#include "core/Text.h"

#include <utility>

namespace korval {

namespace {

// One lamp as the driver's limit state sets it: the picture is kept, and whether it was set.
class LimitSlot final : public LimitLamp {
public:
    explicit LimitSlot(LampPicture& picture) : picture_(picture) {}
    void SetLit(bool lit) override {
        picture_ = lit ? LampPicture::Lit : LampPicture::Dim;
        set_ = true;
    }
    void Refresh() override {}
    bool set() const { return set_; }

private:
    LampPicture& picture_;
    bool set_ = false;
};

} // namespace

std::optional<std::string> BitsOfReply(TroubleshooterKind kind, std::string reply) {
    const auto how = QueryOf(kind);
    ReplaceAll(reply, how.echo, "");
    if (reply.empty()) {
        return std::nullopt;
    }
    const double value = how.byCode ? *kdx::ReadMask(reply) : kdx::ReadWord(reply);
    return kdx::WordBits(value);
}

LampPicture LampFor(TroubleshooterKind kind, char bit) {
    const auto zero = QueryOf(kind).zeroLamp;
    const auto one = zero == LampPicture::Lit ? LampPicture::Dim : LampPicture::Lit;
    return bit == '0' ? zero : bit == '1' ? one : LampPicture::Unset;
}

TroubleshooterReading::TroubleshooterReading(TroubleshooterKind kind, ClsDriverKdx& driver,
                                             ClsTimeDelay& delay)
    : kind_(kind), driver_(driver), delay_(delay), opened_(delay.context().now()) {}

void TroubleshooterReading::Restart() {
    opened_ = delay_.context().now();
    timeline_.Clear();
    seen_.fill(false);
}

TickOutcome TroubleshooterReading::Tick() {
    if (kind_ == TroubleshooterKind::Limits) {
        return tickLimits();
    }
    if (kind_ == TroubleshooterKind::Outputs && firmwareTooOld()) {
        return TickOutcome::OldFirmware;
    }
    return tickByte();
}

bool TroubleshooterReading::firmwareTooOld() {
    driver_.ClearPortChars();
    driver_.SendCommandsToPort(kdx::GetFirmwareVersion());
    delay_.TimeDelay(ReplyDelay);
    auto version = driver_.ReadReplyAndClearPort();
    ReplaceAll(version, "getD0", "");
    version = kdx::WithoutCR(version);
    // A controller that says nothing is not judged: the tick goes on.
    return !version.empty() && Val(version) < kdx::OutputMaskFirmware;
}

TickOutcome TroubleshooterReading::tickByte() {
    const auto how = QueryOf(kind_);
    if (how.clearsFirst) {
        driver_.ClearPortChars();
    }
    driver_.SendCommandsToPort(how.query);
    delay_.TimeDelay(ReplyDelay);
    const auto bits = BitsOfReply(kind_, driver_.ReadReplyAndClearPort());
    if (!bits) {
        return TickOutcome::NoReply;
    }
    for (int bit = 0; bit < Bits; ++bit) {
        const char c = (*bits)[static_cast<std::size_t>(bit)];
        if (const auto picture = LampFor(kind_, c); picture != LampPicture::Unset) {
            lamps_[index(bit)] = picture;
        }
        setLabel(bit, std::string(1, c));
    }
    return TickOutcome::Read;
}

TickOutcome TroubleshooterReading::tickLimits() {
    bool any = false;
    for (int motor = 1; motor <= 4; ++motor) {
        const auto minus = index(2 * motor - 2);
        LimitSlot first(lamps_[minus]);
        LimitSlot second(lamps_[minus + 1]);
        driver_.GetLimitState(motor, &first, &second);
        any = any || first.set();
    }
    // The labels follow the lamps, as the pictures were tied to the bits.
    for (int bit = 0; bit < Bits; ++bit) {
        switch (lamps_[index(bit)]) {
        case LampPicture::Dim:
            setLabel(bit, "0");
            break;
        case LampPicture::Lit:
            setLabel(bit, "1");
            break;
        case LampPicture::Unset:
            break;
        }
    }
    return any ? TickOutcome::Read : TickOutcome::NoReply;
}

void TroubleshooterReading::setLabel(int bit, const std::string& text) {
    auto& label = labels_[index(bit)];
    const bool seen = std::exchange(seen_[index(bit)], true);
    if (label == text) {
        return;
    }
    if (seen) { // the first reading since opening is the start, not a change
        timeline_.Note({elapsed(), bit, label[0], text[0]});
    }
    label = text;
}

double TroubleshooterReading::elapsed() {
    return std::chrono::duration<double>(delay_.context().now() - opened_).count();
}

} // namespace korval
