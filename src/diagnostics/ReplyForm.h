#pragma once
// The kinds of reply a query brings, and the mark that says one has come whole. Replies carry no
// frame: each kind is known by how it ends.
#include <string_view>

namespace korval {

enum class ReplyForm {
    None,    // nothing comes back (the prologue): only quiet ends the wait
    Word,    // decimal text and CR; or a refusal, "J" or the error lead byte and one more
    Mask,    // one byte
    Listing, // a program's commands, ending in CR
};

// Whether `text`, all that has come since the query, ends as a whole reply of that form.
bool EndMarkCame(ReplyForm form, std::string_view text);

} // namespace korval
