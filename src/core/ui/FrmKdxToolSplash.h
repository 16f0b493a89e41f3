#pragma once
// The splash: progress of start-up and shutdown, and the about box.
#include "FormBase.h"

class QLabel;

namespace korval {

class FrmKdxToolSplash final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolSplash();
    void SetStatus(const QString& text); // shown at once, even during a long load
    QString Status() const;
    void MakeTopMost(bool on);
    void ShowAbout();

protected:
    void mousePressEvent(QMouseEvent*) override;

private:
    QLabel* status_;
    bool about_ = false;
};

} // namespace korval
