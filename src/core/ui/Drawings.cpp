#include "Drawings.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korval {

namespace {

// Every drawing is laid out on this grid and scaled to the space it is given.
constexpr double GridWidth = 200;
constexpr double GridHeight = 140;

const QColor Ink(40, 40, 40);
const QColor PhaseA(170, 40, 40);
const QColor PhaseB(40, 70, 170);

// The controller's motor terminals, top to bottom, and where their leads come in.
constexpr double TerminalX = 44;
struct Terminal {
    const char* label;
    double y;
};
constexpr Terminal Terminals[] = {{"A", 22}, {"/A", 46}, {"COM", 70}, {"B", 94}, {"/B", 118}};
constexpr double CommonBusX = 70;
constexpr double CoilX = 150;
constexpr double MotorLeft = 120;

void wire(QPainter& p, const QColor& colour, const std::vector<QPointF>& points) {
    p.setPen(QPen(colour, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void dot(QPainter& p, const QColor& colour, QPointF at) {
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawEllipse(at, 3.2, 3.2);
}

// A winding from y0 down to y1 along x, as a row of half turns bulging to the right.
void coil(QPainter& p, const QColor& colour, double y0, double y1) {
    constexpr int Turns = 4;
    const double step = (y1 - y0) / Turns;
    QPainterPath path({CoilX, y0});
    for (int i = 0; i < Turns; ++i) {
        path.arcTo(QRectF(CoilX - step / 2, y0 + i * step, step, step), 90, -180);
    }
    p.setPen(QPen(colour, 2.2));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
}

void terminalBlock(QPainter& p) {
    p.setPen(QPen(Ink, 1.5));
    p.setBrush(QColor(235, 235, 225));
    p.drawRoundedRect(QRectF(6, 11, TerminalX - 6, 122), 3, 3);
    QFont font = p.font();
    font.setPixelSize(11);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(6, 0, TerminalX - 6, 11), Qt::AlignCenter, "KDX");
    for (const auto& t : Terminals) {
        p.setPen(Ink);
        p.drawText(QRectF(8, t.y - 7, TerminalX - 14, 14), Qt::AlignLeft | Qt::AlignVCenter,
                   t.label);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(TerminalX - 4, t.y), 3, 3);
    }
}

void motorOutline(QPainter& p, const char* title) {
    p.setPen(QPen(Ink, 1.5, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(MotorLeft, 6, 72, 128), 8, 8);
    QFont font = p.font();
    font.setPixelSize(9);
    font.setBold(false);
    p.setFont(font);
    p.setPen(Ink);
    p.drawText(QRectF(CoilX + 10, 60, MotorLeft + 70 - CoilX - 10, 20), Qt::AlignCenter, title);
}

// The ends of both phases go to A, /A, B and /B; the middle of each phase goes to COM. A
// six-wire motor brings the middle out as one lead; an eight-wire motor brings out both ends
// of each half winding, which are joined outside the motor.
void wiring(QPainter& p, bool eightWires) {
    terminalBlock(p);
    motorOutline(p, eightWires ? "8 wires" : "6 wires");
    const double gap = eightWires ? 4 : 0;
    struct Phase {
        QColor colour;
        double top, bottom, endX, startX;
        Terminal first, second;
    };
    const Phase phases[] = {{PhaseA, 14, 62, 100, 96, Terminals[0], Terminals[1]},
                            {PhaseB, 78, 126, 100, 96, Terminals[3], Terminals[4]}};
    for (const auto& ph : phases) {
        const double middle = (ph.top + ph.bottom) / 2;
        coil(p, ph.colour, ph.top, middle - gap / 2);
        coil(p, ph.colour, middle + gap / 2, ph.bottom);
        wire(p, ph.colour,
             {{CoilX, ph.top}, {ph.endX, ph.top}, {ph.endX, ph.first.y}, {TerminalX, ph.first.y}});
        wire(p, ph.colour,
             {{CoilX, ph.bottom},
              {ph.startX, ph.bottom},
              {ph.startX, ph.second.y},
              {TerminalX, ph.second.y}});
        if (eightWires) {
            constexpr double JoinX = 108;
            wire(p, ph.colour,
                 {{CoilX, middle - gap / 2}, {JoinX, middle - gap / 2}, {JoinX, middle}});
            wire(p, ph.colour,
                 {{CoilX, middle + gap / 2}, {JoinX, middle + gap / 2}, {JoinX, middle}});
            wire(p, Ink, {{JoinX, middle}, {CommonBusX, middle}});
            dot(p, Ink, {JoinX, middle});
        } else {
            wire(p, Ink, {{CoilX, middle}, {CommonBusX, middle}});
        }
        dot(p, Ink, {CommonBusX, middle});
    }
    const double busTop = (phases[0].top + phases[0].bottom) / 2;
    const double busBottom = (phases[1].top + phases[1].bottom) / 2;
    const double common = Terminals[2].y;
    wire(p, Ink, {{CommonBusX, busTop}, {CommonBusX, busBottom}});
    wire(p, Ink, {{TerminalX, common}, {CommonBusX, common}});
    dot(p, Ink, {CommonBusX, common});
}

void refusal(QPainter& p) {
    const QPointF centre(GridWidth / 2, GridHeight / 2);
    constexpr double Radius = 56;
    p.setPen(QPen(QColor(200, 30, 30), 13));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(centre, Radius, Radius);
    const double d = Radius * std::sqrt(0.5);
    p.drawLine(centre + QPointF(-d, -d), centre + QPointF(d, d));
}

void arrowHead(QPainter& p, QPointF from, QPointF to) {
    const double angle = std::atan2(to.y() - from.y(), to.x() - from.x());
    constexpr double Head = 8;
    QPolygonF head{to, to - QPointF(std::cos(angle - 0.45) * Head, std::sin(angle - 0.45) * Head),
                   to - QPointF(std::cos(angle + 0.45) * Head, std::sin(angle + 0.45) * Head)};
    p.setBrush(p.pen().color());
    p.drawPolygon(head);
}

void joystick(QPainter& p) {
    // The two directions the stick drives an axis, and the speeds growing with the deflection.
    p.setPen(QPen(PhaseB, 2.5, Qt::SolidLine, Qt::RoundCap));
    for (const double side : {-1.0, 1.0}) {
        const QPointF from(100 + side * 34, 62);
        const QPointF to(100 + side * 84, 62);
        p.drawLine(from, to);
        arrowHead(p, from, to);
    }
    QFont font = p.font();
    font.setPixelSize(16);
    font.setBold(true);
    p.setFont(font);
    p.setPen(PhaseB);
    p.drawText(QRectF(14, 34, 30, 20), Qt::AlignCenter, "-");
    p.drawText(QRectF(156, 34, 30, 20), Qt::AlignCenter, "+");

    QLinearGradient body(0, 100, 0, 132);
    body.setColorAt(0, QColor(90, 90, 96));
    body.setColorAt(1, QColor(40, 40, 44));
    p.setPen(QPen(Ink, 1.5));
    p.setBrush(body);
    p.drawRoundedRect(QRectF(54, 104, 92, 28), 6, 6);
    p.setBrush(QColor(60, 60, 64));
    p.drawEllipse(QRectF(82, 96, 36, 16));
    p.setPen(QPen(QColor(70, 70, 74), 7, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(100, 102), QPointF(112, 40));
    QRadialGradient knob(QPointF(108, 30), 16);
    knob.setColorAt(0, QColor(240, 90, 80));
    knob.setColorAt(1, QColor(160, 20, 20));
    p.setPen(QPen(Ink, 1.2));
    p.setBrush(knob);
    p.drawEllipse(QPointF(113, 34), 13, 13);
}

} // namespace

void paintDrawing(QPainter& p, const QRectF& rect, Drawing drawing) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(rect.width() / GridWidth, rect.height() / GridHeight);
    p.translate(rect.center().x() - GridWidth * scale / 2,
                rect.center().y() - GridHeight * scale / 2);
    p.scale(scale, scale);
    switch (drawing) {
    case Drawing::Pic6Wire:
        wiring(p, false);
        break;
    case Drawing::Pic8Wire:
        wiring(p, true);
        break;
    case Drawing::PicNo:
        refusal(p);
        break;
    case Drawing::PicJoystick:
        joystick(p);
        break;
    }
    p.restore();
}

} // namespace korval
