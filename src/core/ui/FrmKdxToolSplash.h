#pragma once
// The splash: progress of start-up and shutdown, and the about box.
#include "FormBase.h"

class QLabel;
class QPushButton;

namespace korval {

class FrmKdxToolSplash final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolSplash();
    void SetStatus(const QString& text); // shown at once, even during a long load
    QString Status() const;
    void MakeTopMost(bool on);
    // The about box: a window of its own that closes with its button, Escape or a click.
    void ShowAbout();
    void CloseAbout();
    QPushButton* CmdOK() const { return ok_; }

protected:
    void mousePressEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* status_;
    QPushButton* ok_;
    bool about_ = false;
};

} // namespace korval
