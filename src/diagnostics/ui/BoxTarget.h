#pragma once
// A panel's text box as the diagnostic writes it: the box shows the text, and the exact bytes
// are kept beside it, since the report and the saved file are made of them.
#include "core/TextTarget.h"

#include <string>

class QPlainTextEdit;

namespace korval {

class BoxTarget final : public TextTarget {
public:
    explicit BoxTarget(QPlainTextEdit* edit) : edit_(edit) {}
    void SetText(const std::string& text) override;
    const std::string& Text() const { return text_; }
    QPlainTextEdit* Edit() const { return edit_; }

private:
    QPlainTextEdit* edit_;
    std::string text_;
};

} // namespace korval
