#pragma once
// Reads the answer to one of the driver's own items in place, from the bytes that arrive while
// the driver holds the line. The controller's replies carry no frame, so the reader knows each
// answer by its form; every byte that is not the answer (a run's "^", anything after the end)
// is handed back to go on to the receive store, so that nothing a program reads is lost.
#include <string>
#include <string_view>

namespace korval::driver {

enum class ReplyKind {
    None,    // a command: nothing comes back
    Status,  // one status byte, or the error lead byte and one more
    Word,    // decimal text ending in CR; or a refusal, "J" or the error lead byte and one more
    Stored,  // a setting and its "rsm": "^", after a refusal ("J", or "Ë" and one more) if any
    Listing, // a program listing, ending in CR
};

class ReplyReader {
public:
    ReplyReader(ReplyKind kind, std::string_view item) : kind_(kind), item_(item) {}

    // Takes bytes in arrival order; gives back those that are not part of the answer or of the
    // echo of the item.
    std::string feed(std::string_view bytes);

    bool complete() const { return complete_; }
    // Whether anything of the answer (or of an echo) has come.
    bool heard() const { return heard_; }
    const std::string& reply() const { return reply_; }

private:
    bool takesEcho(char c);
    bool takes(char c);
    bool refusalGoesOn(char c) const; // the refusal of a setting, before its "^"

    ReplyKind kind_;
    std::string item_;
    std::string reply_;
    std::size_t echoed_ = 0;
    bool echoing_ = false; // the controller echoes: the item's own bytes come back first
    bool heard_ = false;
    bool complete_ = false;
};

} // namespace korval::driver
