#pragma once
// The picture store's drawings that are not buttons: how a motor's leads are wired to the
// controller (six and eight wires), the sign for a motor that can't be wired, and the joystick.
// Painted rather than stored, so they stay sharp at any size.
#include <QRectF>

class QPainter;

namespace korval {

enum class Drawing { Pic6Wire, Pic8Wire, PicNo, PicJoystick };

// Paints the drawing centred in `rect`, keeping its proportions.
void paintDrawing(QPainter& painter, const QRectF& rect, Drawing drawing);

} // namespace korval
