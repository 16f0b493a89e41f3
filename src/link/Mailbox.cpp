#include "Mailbox.h"

#include <algorithm>

namespace korval {

Mailbox::Box::Box(Mailbox& owner, Mode mode)
    : owner_(owner), mode_(mode), sink_{this, &Box::write,
                                        mode == Mode::Append ? std::int32_t{1} : std::int32_t{0}} {}

void Mailbox::Box::write(void* context, const char* text, std::int32_t length) {
    auto* box = static_cast<Box*>(context);
    box->owner_.post(*box, std::string(text, static_cast<std::size_t>(std::max(length, 0))));
}

void Mailbox::Box::setText(std::string text) {
    if (text == text_) {
        return;
    }
    text_ = std::move(text);
    if (handler_) {
        handler_(text_);
    }
}

Mailbox::Mailbox(Wake wake) : wake_(std::move(wake)) {}

Mailbox::Box& Mailbox::addBox(Mode mode, Handler handler, std::size_t limit) {
    boxes_.push_back(Box(*this, mode));
    auto& box = boxes_.back();
    box.limit_ = limit;
    box.sink_.context = &box; // the sink must name the box where it now lives
    box.handler_ = std::move(handler);
    return box;
}

void Mailbox::setWake(Wake wake) {
    std::lock_guard lock(mutex_);
    wake_ = std::move(wake);
}

void Mailbox::post(Box& box, std::string text) {
    Wake wake;
    {
        std::lock_guard lock(mutex_);
        if (box.mode_ == Mode::ReplaceLatestOnly) {
            const auto old = std::find_if(queue_.begin(), queue_.end(),
                                          [&](const Write& w) { return w.box == &box; });
            if (old != queue_.end()) {
                old->text = std::move(text); // keeps its place; only the newest text matters
                return;
            }
        }
        queue_.push_back({&box, std::move(text)});
        wake = wake_;
    }
    if (wake) {
        wake();
    }
}

void Mailbox::drain() {
    for (;;) {
        Write next;
        {
            std::lock_guard lock(mutex_);
            if (queue_.empty()) {
                return;
            }
            next = std::move(queue_.front());
            queue_.pop_front();
        }
        Box& box = *next.box;
        if (box.mode_ == Mode::Append) {
            box.text_ += next.text.substr(0, box.limit_ - std::min(box.limit_, box.text_.size()));
        } else {
            box.text_ = std::move(next.text);
        }
        if (box.handler_) {
            box.handler_(box.text_);
        }
    }
}

bool Mailbox::pending() const {
    std::lock_guard lock(mutex_);
    return !queue_.empty();
}

} // namespace korval
