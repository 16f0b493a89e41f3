#pragma once
#include "Pictures.h"

#include <QWidget>

namespace korval {

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

} // namespace korval
