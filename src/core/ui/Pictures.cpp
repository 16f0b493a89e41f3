#include "Pictures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace korval {

namespace {

QColor symbolColour(Symbol s) {
    switch (s) {
    case Symbol::Run:
    case Symbol::Online:
    case Symbol::TestScript:
    case Symbol::TestMotor:
        return QColor(30, 140, 60);
    case Symbol::Stop:
    case Symbol::Abort:
        return QColor(190, 40, 40);
    case Symbol::Local:
        return QColor(200, 150, 20);
    default:
        return QColor(40, 80, 160);
    }
}

void arrow(QPainter& p, QPointF from, QPointF to, double head) {
    p.drawLine(from, to);
    const double angle = std::atan2(to.y() - from.y(), to.x() - from.x());
    for (const double side : {2.6, -2.6}) {
        p.drawLine(to, to + QPointF(std::cos(angle + side) * head, std::sin(angle + side) * head));
    }
}

void drawSymbol(QPainter& p, const QRectF& r, Symbol s) {
    const double u = r.width() / 10.0;
    const QPointF c = r.center();
    QPen pen(symbolColour(s), u * 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    switch (s) {
    case Symbol::Run:
    case Symbol::TestScript:
    case Symbol::TestMotor: {
        p.setBrush(symbolColour(s));
        QPolygonF tri{
            {c.x() - 2 * u, c.y() - 3 * u}, {c.x() + 3 * u, c.y()}, {c.x() - 2 * u, c.y() + 3 * u}};
        p.drawPolygon(tri);
        break;
    }
    case Symbol::Stop:
        p.setBrush(symbolColour(s));
        p.drawRect(QRectF(c.x() - 2.5 * u, c.y() - 2.5 * u, 5 * u, 5 * u));
        break;
    case Symbol::Abort:
        p.drawLine(QPointF(c.x() - 2.5 * u, c.y() - 2.5 * u),
                   QPointF(c.x() + 2.5 * u, c.y() + 2.5 * u));
        p.drawLine(QPointF(c.x() + 2.5 * u, c.y() - 2.5 * u),
                   QPointF(c.x() - 2.5 * u, c.y() + 2.5 * u));
        break;
    case Symbol::Online:
    case Symbol::Local: {
        p.drawArc(QRectF(c.x() - 3 * u, c.y() - 3 * u, 6 * u, 6 * u), 60 * 16, -300 * 16);
        if (s == Symbol::Online) {
            p.drawLine(QPointF(c.x(), c.y() - 3.5 * u), QPointF(c.x(), c.y()));
        } else {
            p.drawLine(QPointF(c.x() - 1.5 * u, c.y()), QPointF(c.x() + 1.5 * u, c.y()));
        }
        break;
    }
    case Symbol::Status:
        p.drawEllipse(c, 3.2 * u, 3.2 * u);
        p.drawLine(QPointF(c.x(), c.y() - 0.5 * u), QPointF(c.x(), c.y() + 2 * u));
        p.drawPoint(QPointF(c.x(), c.y() - 1.8 * u));
        break;
    case Symbol::AutoDetect:
    case Symbol::Recover:
        p.drawArc(QRectF(c.x() - 3 * u, c.y() - 3 * u, 6 * u, 6 * u), 90 * 16, 270 * 16);
        arrow(p, QPointF(c.x(), c.y() - 3 * u), QPointF(c.x() + 1.5 * u, c.y() - 3 * u), 1.2 * u);
        break;
    case Symbol::QuickMoveSingle:
        arrow(p, QPointF(c.x() - 3.5 * u, c.y()), QPointF(c.x() + 3.5 * u, c.y()), 1.5 * u);
        break;
    case Symbol::QuickMoveMulti:
        arrow(p, QPointF(c.x() - 3.5 * u, c.y() - 1.5 * u),
              QPointF(c.x() + 3.5 * u, c.y() - 1.5 * u), 1.3 * u);
        arrow(p, QPointF(c.x() - 3.5 * u, c.y() + 1.5 * u),
              QPointF(c.x() + 3.5 * u, c.y() + 1.5 * u), 1.3 * u);
        break;
    case Symbol::AutoReverse:
        arrow(p, QPointF(c.x() - 3.5 * u, c.y() - 1.5 * u),
              QPointF(c.x() + 3.5 * u, c.y() - 1.5 * u), 1.3 * u);
        arrow(p, QPointF(c.x() + 3.5 * u, c.y() + 1.5 * u),
              QPointF(c.x() - 3.5 * u, c.y() + 1.5 * u), 1.3 * u);
        break;
    case Symbol::VirtualJog:
        arrow(p, QPointF(c.x() - 0.5 * u, c.y()), QPointF(c.x() - 3.5 * u, c.y()), 1.3 * u);
        arrow(p, QPointF(c.x() + 0.5 * u, c.y()), QPointF(c.x() + 3.5 * u, c.y()), 1.3 * u);
        break;
    case Symbol::MoveNegative:
    case Symbol::MovePositive: {
        p.setBrush(symbolColour(s));
        const double tip = s == Symbol::MovePositive ? 3.5 * u : -3.5 * u;
        p.drawPolygon(QPolygonF{{c.x() + tip, c.y()},
                                {c.x() - tip * 0.6, c.y() - 3 * u},
                                {c.x() - tip * 0.6, c.y() + 3 * u}});
        break;
    }
    case Symbol::Help: {
        QFont font = p.font();
        font.setPixelSize(static_cast<int>(6.5 * u));
        font.setBold(true);
        p.setFont(font);
        p.drawText(QRectF(c.x() - 4 * u, c.y() - 4 * u, 8 * u, 8 * u), Qt::AlignCenter, "?");
        break;
    }
    case Symbol::Terminal:
        p.drawRect(QRectF(c.x() - 3.5 * u, c.y() - 2.8 * u, 7 * u, 5.6 * u));
        p.drawLine(QPointF(c.x() - 2.2 * u, c.y() - 1 * u), QPointF(c.x() - 0.8 * u, c.y()));
        p.drawLine(QPointF(c.x() - 0.8 * u, c.y()), QPointF(c.x() - 2.2 * u, c.y() + 1 * u));
        p.drawLine(QPointF(c.x(), c.y() + 1.2 * u), QPointF(c.x() + 2 * u, c.y() + 1.2 * u));
        break;
    case Symbol::CodeFormat:
        for (int i = -1; i <= 1; ++i) {
            p.drawLine(QPointF(c.x() - 3 * u + (i + 1) * u, c.y() + i * 2 * u),
                       QPointF(c.x() + 3 * u, c.y() + i * 2 * u));
        }
        break;
    case Symbol::SaveScript:
        p.drawRect(QRectF(c.x() - 3 * u, c.y() - 3 * u, 6 * u, 6 * u));
        p.drawRect(QRectF(c.x() - 1.8 * u, c.y() - 3 * u, 3.6 * u, 2 * u));
        break;
    case Symbol::SaveToKdx: // into the controller's memory: an arrow down into a chip
        p.drawRect(QRectF(c.x() - 3 * u, c.y() + 0.5 * u, 6 * u, 2.5 * u));
        arrow(p, QPointF(c.x(), c.y() - 3.5 * u), QPointF(c.x(), c.y() + 0.5 * u), 1.3 * u);
        break;
    case Symbol::Preview: // a motion against time, out and back
        p.drawLine(QPointF(c.x() - 3.5 * u, c.y() + 3 * u),
                   QPointF(c.x() + 3.5 * u, c.y() + 3 * u));
        p.drawPolyline(QPolygonF{{c.x() - 3.5 * u, c.y() + 2 * u},
                                 {c.x() - 1.5 * u, c.y() - 2.5 * u},
                                 {c.x() + 0.5 * u, c.y() + 2 * u},
                                 {c.x() + 2.5 * u, c.y() - 2.5 * u}});
        break;
    case Symbol::Back:
        arrow(p, QPointF(c.x() + 3 * u, c.y()), QPointF(c.x() - 3 * u, c.y()), 2 * u);
        break;
    case Symbol::Next:
        arrow(p, QPointF(c.x() - 3 * u, c.y()), QPointF(c.x() + 3 * u, c.y()), 2 * u);
        break;
    }
}

} // namespace

void paintPicture(QPainter& p, const QRectF& rect, const Picture& picture, bool enabled) {
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF face = rect.adjusted(1, 1, -1, -1);
    QLinearGradient fill(face.topLeft(), face.bottomLeft());
    fill.setColorAt(0, picture.down ? QColor(190, 190, 190) : QColor(250, 250, 250));
    fill.setColorAt(1, picture.down ? QColor(225, 225, 225) : QColor(205, 205, 205));
    p.setPen(QPen(picture.down ? QColor(90, 90, 90) : QColor(150, 150, 150), 1));
    p.setBrush(fill);
    p.drawRoundedRect(face, 4, 4);
    p.save();
    if (picture.down) {
        p.translate(1, 1); // the face sinks under the finger
    }
    if (!enabled) {
        p.setOpacity(0.35);
    }
    const double side = std::min(face.width(), face.height());
    drawSymbol(p, QRectF(face.center().x() - side / 2, face.center().y() - side / 2, side, side),
               picture.symbol);
    p.restore();
}

} // namespace korval
