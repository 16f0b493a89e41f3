#include "DrawingBox.h"

#include <QPainter>

namespace korval {

DrawingBox::DrawingBox(const QString& name, std::optional<Drawing> drawing, QWidget* parent)
    : QWidget(parent), drawing_(drawing) {
    setObjectName(name);
    setMinimumSize(160, 120);
}

void DrawingBox::setDrawing(std::optional<Drawing> drawing) {
    if (drawing != drawing_) {
        drawing_ = drawing;
        update();
    }
}

void DrawingBox::paintEvent(QPaintEvent*) {
    if (drawing_) {
        QPainter p(this);
        paintDrawing(p, rect(), *drawing_);
    }
}

} // namespace korval
