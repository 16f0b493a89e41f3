#include "ReplyForm.h"

#include "core/StatusLead.h"

namespace korval {

bool EndMarkCame(ReplyForm form, std::string_view text) {
    if (text.empty()) {
        return false;
    }
    switch (form) {
    case ReplyForm::Word:
        return text.back() == '\r' || text == "J" || (text.size() == 2 && text[0] == StatusLead);
    case ReplyForm::Mask:
        return true;
    case ReplyForm::Listing:
        return text.back() == '\r';
    case ReplyForm::None:
        break;
    }
    return false;
}

} // namespace korval
