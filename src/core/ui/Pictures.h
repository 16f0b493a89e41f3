#pragma once
// The program's pictures, drawn rather than stored so they stay crisp at any screen scale:
// the faces of the picture buttons (up and down), the lamps, and the message icons.
#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace korval {

enum class Symbol {
    QuickMoveSingle,
    QuickMoveMulti,
    AutoReverse,
    VirtualJog,
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
};

struct Picture {
    Symbol symbol = Symbol::Run;
    bool down = false;
    bool operator==(const Picture&) const = default;
};

// Paints a button face into the rectangle of `painter`'s device.
void paintPicture(class QPainter& painter, const QRectF& rect, const Picture& picture,
                  bool enabled);

// A picture button: shows its up face, and acts on the press (the handler swaps in the down
// face, pauses, acts); the release only brings the up face back.
class PictureButton : public QWidget {
    Q_OBJECT
public:
    PictureButton(const QString& name, Symbol symbol, QWidget* parent = nullptr);
    const Picture& picture() const { return picture_; }
    void setPicture(const Picture& picture); // repaints only on a change
    void showDown() { setPicture({picture_.symbol, true}); }
    void showUp() { setPicture({picture_.symbol, false}); }
    QSize sizeHint() const override { return {40, 40}; }

signals:
    void pressed();

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(class QMouseEvent* event) override;
    void mouseReleaseEvent(class QMouseEvent* event) override;

private:
    Picture picture_;
};

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
