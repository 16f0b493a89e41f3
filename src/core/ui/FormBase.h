#pragma once
// What every window of the program has: its system name as object name, a virtual name for the
// windows that exist in four copies, the walker's view of its controls, and the rule that a
// tool window's close box hides it.
#include "core/ClsClassIniFile.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

class QMdiSubWindow;

namespace korval {

class FormBase : public QWidget {
    Q_OBJECT
public:
    FormBase(const QString& name, const QString& caption, QWidget* parent = nullptr);

    void SetVirtualName(const std::string& name) { virtualName_ = name; }
    std::string GetVirtualName() const { return virtualName_; }
    std::string Name() const { return objectName().toStdString(); }

    // The window as the settings walker sees it.
    WalkedForm& Walked();

    // The frame that holds the window inside the main window, when it lives there.
    QMdiSubWindow* SubWindow() const { return subWindow_; }
    void SetSubWindow(QMdiSubWindow* frame) { subWindow_ = frame; }
    // Shows the window (and its frame) without blocking, brought to the front.
    void ShowWindow();
    void HideWindow();
    bool IsShown() const;

    // Called before the settings are written at shutdown: a window empties what is transient,
    // so that it is not saved.
    virtual void PrepareForSave() {}

    // Windows that must not be destroyed by a close: the close box only hides them.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::string virtualName_;
    std::unique_ptr<WalkedForm> walked_;
    QMdiSubWindow* subWindow_ = nullptr;
};

} // namespace korval
