#pragma once
// Long work on a text (laying out a script of a megabyte) runs on a thread of its own while the
// caller's events go on, so that a window never stops answering; the caller waits, as every
// pause in the program does, by letting events run.
#include "ClsTimeDelay.h"

#include <chrono>
#include <future>
#include <utility>

namespace korval {

// `work` must touch nothing that the events may change meanwhile: give it its own copies.
template <typename Work> auto RunAside(WaitContext& events, Work work) {
    auto result = std::async(std::launch::async, std::move(work));
    while (result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        events.runEvents(std::chrono::milliseconds(2));
    }
    return result.get();
}

} // namespace korval
