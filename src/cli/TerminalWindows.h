#pragma once
// The axis windows as a terminal shows them: what the wizard switches is kept to be reported,
// its pages go forward as the controller holds them (a motor is tried with `axis N --test`),
// and a motor test's progress and positions are printed.
#include "axis/MotorTest.h"
#include "axis/WizardDialogue.h"
#include "axis/WizardMenus.h"

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace korval::cli {

class TerminalWindows final : public WizardMenus, public WizardDialogue, public MotorTestView {
public:
    // Positions go to `out`, messages to `progress`.
    TerminalWindows(std::ostream& out, std::ostream& progress) : out_(out), progress_(progress) {}

    // The axes whose set-up menu the wizard left on, as "1 2 3".
    std::string AxesWithMenusOn() const;
    // The axes the wizard went through, in order.
    const std::vector<int>& Visited() const { return visited_; }

    void SetMenuEnabled(const std::string& menu, bool enabled) override { menus_[menu] = enabled; }
    void SetOptMotor34Enabled(bool) override {}

    void ShowMessage(const std::string& text) override;
    void HideMessage() override {}
    void DetectKdx() override {} // the port named on the command line is the controller's
    void MarkAxisTools(bool) override {}
    void HideAxisTools() override {}
    void LoadAxis(int axis) override { visited_.push_back(axis); }
    PageEnd ShowPage(WizardPage, const std::string&) override { return PageEnd::Next; }
    void ApplyPage(WizardPage) override {}
    void HideAxisTool(int) override {}
    void SetMainWindowEnabled(bool) override {}

    void ShowPleaseWait(bool shown) override;
    void SetHourglass(bool) override {}
    void ShowPosition(const std::string& steps) override;
    void SelectSettings(int, int) override {}

private:
    std::ostream& out_;
    std::ostream& progress_;
    std::map<std::string, bool> menus_;
    std::vector<int> visited_;
};

} // namespace korval::cli
