#pragma once
#include <QColor>
#include <QWidget>

namespace korval {

// A lamp of the status panel.
class Lamp : public QWidget {
    Q_OBJECT
public:
    Lamp(const QString& name, QColor color, QWidget* parent = nullptr);
    bool lit() const { return lit_; }
    void setLit(bool lit); // repaints only on a change, so an unchanged lamp never flickers
    QSize sizeHint() const override { return {18, 18}; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QColor color_;
    bool lit_ = false;
};

} // namespace korval
