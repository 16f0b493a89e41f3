#pragma once
// The program's pictures, drawn rather than stored so they stay crisp at any screen scale:
// the faces of the picture buttons (up and down), the lamps, and the message icons.
#include <QColor>
#include <QPixmap>
#include <QString>

namespace korval {

enum class Symbol {
    QuickMoveSingle,
    QuickMoveMulti,
    AutoReverse,
    VirtualJog,
    MoveNegative,
    MovePositive,
    Help,
    Terminal,
    Run,
    Stop,
    Online,
    Local,
    Status,
    AutoDetect,
    Abort,
    Recover,
    CodeFormat,
    TestScript,
    SaveScript,
    SaveToKdx,
    Preview,
    TestMotor,
    Back,
    Next,
};

struct Picture {
    Symbol symbol = Symbol::Run;
    bool down = false;
    bool operator==(const Picture&) const = default;
};

// Paints a button face into the rectangle of `painter`'s device.
void paintPicture(class QPainter& painter, const QRectF& rect, const Picture& picture,
                  bool enabled);

} // namespace korval
