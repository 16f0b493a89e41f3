#pragma once
// Colours the sent lines of the terminal's transcript, so that they stand apart from the
// controller's at a glance.
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace korval {

class SentHighlighter final : public QSyntaxHighlighter {
    Q_OBJECT
public:
    explicit SentHighlighter(QTextDocument* document);
    void setActive(bool active);

protected:
    void highlightBlock(const QString& text) override;

private:
    QTextCharFormat sent_;
    bool active_ = false;
};

} // namespace korval
