#include "CodeEditor.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextBlock>

namespace korval {

namespace {

class LineNumbers final : public QWidget {
public:
    explicit LineNumbers(CodeEditor* editor) : QWidget(editor), editor_(editor) {}
    QSize sizeHint() const override { return {editor_->lineNumberWidth(), 0}; }

protected:
    void paintEvent(QPaintEvent* event) override { editor_->paintLineNumbers(event); }

private:
    CodeEditor* editor_;
};

} // namespace

CodeEditor::CodeEditor(const QString& name, QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(name);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabStopDistance(fontMetrics().horizontalAdvance(' ') * 8);
    numbers_ = new LineNumbers(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this,
            [this] { setViewportMargins(lineNumberWidth(), 0, 0, 0); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
        if (dy != 0) {
            numbers_->scroll(0, dy);
        } else {
            numbers_->update(0, rect.y(), numbers_->width(), rect.height());
        }
    });
    setViewportMargins(lineNumberWidth(), 0, 0, 0);
}

int CodeEditor::lineNumberWidth() const {
    const auto digits = static_cast<int>(QString::number(std::max(1, blockCount())).size());
    return 10 + fontMetrics().horizontalAdvance('9') * std::max(digits, 3);
}

void CodeEditor::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    const QRect r = contentsRect();
    numbers_->setGeometry(r.left(), r.top(), lineNumberWidth(), r.height());
}

void CodeEditor::paintLineNumbers(QPaintEvent* event) {
    QPainter painter(numbers_);
    painter.fillRect(event->rect(), QColor(238, 238, 232));
    painter.setPen(QColor(130, 130, 130));
    painter.setFont(font());
    auto block = firstVisibleBlock();
    int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
    while (block.isValid() && top <= event->rect().bottom()) {
        const int height = qRound(blockBoundingRect(block).height());
        if (block.isVisible() && top + height >= event->rect().top()) {
            painter.drawText(0, top, numbers_->width() - 5, height, Qt::AlignRight,
                             QString::number(block.blockNumber() + 1));
        }
        block = block.next();
        top += height;
    }
}

} // namespace korval
