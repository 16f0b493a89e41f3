#pragma once
// A jog arrow: a picture button that is held. It tells when the press begins (pressed) and
// once when it ends: on release, and also when the pointer leaves it, the window loses focus,
// or the arrow is hidden, so that a release that never arrives still ends the jog.
#include "core/ui/PictureButton.h"

namespace korval {

class JogArrow final : public PictureButton {
    Q_OBJECT
public:
    JogArrow(const QString& name, Symbol symbol, QWidget* parent = nullptr);
    bool IsHeld() const { return held_; }

public slots:
    // Ends the hold from outside (another window became active); nothing when not held.
    void LetGo();

signals:
    void letGo();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool held_ = false;
};

} // namespace korval
