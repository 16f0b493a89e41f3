#pragma once
// A picture control that shows one drawing of the picture store, or nothing.
#include "Drawings.h"

#include <QWidget>

#include <optional>

namespace korval {

class DrawingBox final : public QWidget {
    Q_OBJECT
public:
    DrawingBox(const QString& name, std::optional<Drawing> drawing, QWidget* parent = nullptr);
    std::optional<Drawing> drawing() const { return drawing_; }
    void setDrawing(std::optional<Drawing> drawing);
    QSize sizeHint() const override { return {260, 182}; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    std::optional<Drawing> drawing_;
};

} // namespace korval
