#pragma once
// A list of subscribers, called in subscription order on the thread that raises the event.
#include <functional>
#include <map>

namespace korval {

template <typename... Args> class Event {
public:
    using Handler = std::function<void(Args...)>;

    int subscribe(Handler handler) {
        handlers_.emplace(next_, std::move(handler));
        return next_++;
    }
    void unsubscribe(int id) { handlers_.erase(id); }

    void raise(Args... args) const {
        // A handler may unsubscribe itself or others while the event runs: walk a copy.
        const auto handlers = handlers_;
        for (const auto& [id, handler] : handlers) {
            handler(args...);
        }
    }

private:
    std::map<int, Handler> handlers_;
    int next_ = 1;
};

} // namespace korval
