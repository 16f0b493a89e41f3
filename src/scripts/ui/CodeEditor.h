#pragma once
// A plain text box for command scripts, in a fixed-width font with line numbers at its side.
#include <QPlainTextEdit>

namespace korval {

class CodeEditor : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit CodeEditor(const QString& name, QWidget* parent = nullptr);
    int lineNumberWidth() const;
    void paintLineNumbers(QPaintEvent* event);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* numbers_;
};

} // namespace korval
