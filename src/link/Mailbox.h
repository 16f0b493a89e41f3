#pragma once
// Driver threads never touch program state: what they write into a sink is queued here, and
// drain() applies the writes in arrival order on the program's one thread, calling each sink's
// handler with the sink's whole resulting text.
#include "KdxDriverApi.h"

#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <string>

namespace korval {

class Mailbox {
public:
    // Called from a driver thread after a write was queued: the face schedules a drain().
    using Wake = std::function<void()>;
    using Handler = std::function<void(const std::string& text)>;

    enum class Mode {
        Append,           // every write adds to the text
        Replace,          // every write replaces it, and every write is seen by the handler
        ReplaceLatestOnly // as Replace, but a write not yet handled is dropped for a newer one
    };

    class Box {
    public:
        const KdxSink* sink() const { return &sink_; }
        const std::string& text() const { return text_; }
        // As a text box's change: the handler runs when the text differs.
        void setText(std::string text);
        void setHandler(Handler handler) { handler_ = std::move(handler); }

    private:
        friend class Mailbox;
        Box(Mailbox& owner, Mode mode);
        static void write(void* context, const char* text, std::int32_t length);

        Mailbox& owner_;
        Mode mode_;
        std::size_t limit_ = std::string::npos; // an append box holds no more than this
        KdxSink sink_;
        std::string text_;
        Handler handler_;
    };

    explicit Mailbox(Wake wake = {});
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    // An append box stops taking text at `limit` characters, as a text box does when full.
    Box& addBox(Mode mode, Handler handler = {}, std::size_t limit = std::string::npos);
    void setWake(Wake wake);

    // Applies what is queued, in order. Handlers may run nested drains (a handler that waits
    // lets events run): each write is taken from the queue before its handler runs.
    void drain();
    bool pending() const;

private:
    struct Write {
        Box* box;
        std::string text;
    };
    void post(Box& box, std::string text);

    mutable std::mutex mutex_;
    std::deque<Write> queue_;
    std::list<Box> boxes_; // stable addresses: sinks point into them
    Wake wake_;
};

} // namespace korval
