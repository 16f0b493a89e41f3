#include "Lamp.h"

#include <QPainter>

namespace korval {

Lamp::Lamp(const QString& name, QColor color, QWidget* parent) : QWidget(parent), color_(color) {
    setObjectName(name);
    setFixedSize(sizeHint());
}

void Lamp::setLit(bool lit) {
    if (lit == lit_) {
        return;
    }
    lit_ = lit;
    update();
}

void Lamp::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    QRadialGradient glow(r.center() - QPointF(r.width() / 6, r.height() / 6), r.width() / 1.5);
    const QColor base = lit_ ? color_ : color_.darker(330);
    glow.setColorAt(0, lit_ ? base.lighter(170) : base.lighter(130));
    glow.setColorAt(1, base);
    p.setPen(QPen(QColor(60, 60, 60), 1));
    p.setBrush(glow);
    p.drawEllipse(r);
}

} // namespace korval
