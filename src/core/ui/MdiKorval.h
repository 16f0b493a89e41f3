#pragma once
// The one top-level window: the menu tree, the tool bar of picture buttons, the MDI area where
// the tool windows live, and the status panel with its lamps.
#include "FormBase.h"
#include "Lamp.h"
#include "PictureButton.h"

#include "core/Event.h"
#include "link/StatusDisplay.h"

#include <QHash>
#include <QList>

#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMdiArea;
class QMenu;

namespace korval {

class MdiKorval final : public FormBase, public StatusPanel {
    Q_OBJECT
public:
    MdiKorval();
    ~MdiKorval() override;

    QAction* Menu(const QString& name) const { return actions_.value(name); }
    PictureButton* Button(const QString& name) const;
    QMdiArea* Area() const { return area_; }
    QWidget* ToolBar() const { return toolBar_; }
    QLabel* LblStatusKdx() const { return lblStatusKdx_; }
    Lamp* PicKdxPower() const { return power_; }
    Lamp* PicKdxOnline() const { return online_; }

    // Puts a tool window into the MDI area; its close box will only hide it.
    void Adopt(FormBase& form);

    // An entry does something only when its handler exists; the rest stay disabled. The tool
    // bar's button for that entry comes on with it.
    void SetHandler(const QString& menu, std::function<void()> handler);
    bool HasHandler(const QString& menu) const { return handlers_.contains(menu); }

    // Status panel.
    std::string Caption() const override;
    void SetCaption(const std::string& text) override;
    void SetLamps(bool powerLit, bool onlineLit) override;
    StatusDisplay& Display() { return *display_; }

    // A line of the status panel for news of the link ("Com3 went away: ..."); "" clears it.
    void SetNote(const QString& text);

    void PortChanged(const std::string& port, const std::string& baud);
    void PortOpenOrClosed(const std::string& state);
    void KdxChanged(const std::string& word);

    void PicRunButton_MouseDown();
    void PicStopButton_MouseDown();
    void PicStatusButton_MouseDown();
    void PicOnlineButton_MouseDown();
    void PicLocalButton_MouseDown();
    void FontSize(int points);

    // Shutdown's first step: the window no longer follows the driver's events.
    void ReleaseKdxStatus();

    // Raised by the Stop button once the controller has stopped, before its flag clears.
    Event<> Stopped;
    // What closing the main window does: the program's shutdown.
    void SetOnClose(std::function<void()> onClose) { onClose_ = std::move(onClose); }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    QWidget* buildToolBar();
    QWidget* buildStatusBar();
    void disableUntilWired();
    void connectPanelButtons();
    void listOpenWindows(QMenu* menu);
    void placeOnOpen(QWidget* frame);

    QHash<QString, QAction*> actions_;
    QHash<QString, std::function<void()>> handlers_;
    QMdiArea* area_ = nullptr;
    QWidget* toolBar_ = nullptr;
    QLabel* lblStatusKdx_ = nullptr;
    QLabel* lblStatusPort_ = nullptr;
    QLabel* lblPortCurrent_ = nullptr;
    QLabel* lblNote_ = nullptr;
    QList<QAction*> windowEntries_; // the Window menu's list of open tool windows
    Lamp* power_ = nullptr;
    Lamp* online_ = nullptr;
    std::unique_ptr<StatusDisplay> display_;
    int subscriptions_[3] = {0, 0, 0};
    std::function<void()> onClose_;
    bool closing_ = false;
};

} // namespace korval
