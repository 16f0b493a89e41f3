#include "SentHighlighter.h"

#include <QRegularExpression>

namespace korval {

SentHighlighter::SentHighlighter(QTextDocument* document) : QSyntaxHighlighter(document) {
    sent_.setForeground(QColor(20, 70, 170));
    sent_.setFontWeight(QFont::Bold);
}

void SentHighlighter::setActive(bool active) {
    if (active != active_) {
        active_ = active;
        rehighlight();
    }
}

void SentHighlighter::highlightBlock(const QString& text) {
    // A sent line begins with "> ", behind its time when times are shown.
    static const QRegularExpression sentLine(R"(^(\d\d:\d\d:\d\d\.\d\d\d )?> )");
    if (active_ && sentLine.match(text).hasMatch()) {
        setFormat(0, static_cast<int>(text.size()), sent_);
    }
}

} // namespace korval
