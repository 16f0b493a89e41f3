#include "BoxTarget.h"

#include "core/qt/Latin1.h"

#include <QPlainTextEdit>

namespace korval {

void BoxTarget::SetText(const std::string& text) {
    text_ = text;
    auto shown = Latin1(text);
    shown.replace("\r\n", "\n");
    shown.replace('\r', '\n');
    edit_->setPlainText(shown);
}

} // namespace korval
