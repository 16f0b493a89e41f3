#pragma once
// The windows the set-up wizard works through: the message box, the detect window, the four
// axis tools and the wizard's own page window. Each call returns when the window has done it;
// a page returns when one of its buttons has ended it.
#include <string>

namespace korval {

enum class WizardPage { Make, Model, Limits, Test };

// How a page ended. The test page also ends when its motor test has run.
enum class PageEnd { Next, Back, Cancel, TestKept, TestNotKept };

class WizardDialogue {
public:
    virtual ~WizardDialogue() = default;
    // The small "Please Wait" box with this text, shown and painted; and hidden again.
    virtual void ShowMessage(const std::string& text) = 0;
    virtual void HideMessage() = 0;
    // Shows the detect window and runs the port search to its end, as its button does.
    virtual void DetectKdx() = 0;
    // The grey of the lists the wizard drives on all four axis tools, or their usual colour.
    virtual void MarkAxisTools(bool wizardDriven) = 0;
    virtual void HideAxisTools() = 0;
    // Shows the axis tool, brings it in line with the controller, copies its three list rows
    // into the wizard's lists, and hides every control of the wizard window.
    virtual void LoadAxis(int axis) = 0;
    // Shows the page's controls with the instruction and waits for the page to end.
    virtual PageEnd ShowPage(WizardPage page, const std::string& instruction) = 0;
    // Passes the row chosen on the page (make, model or limits) to the axis tool.
    virtual void ApplyPage(WizardPage page) = 0;
    virtual void HideAxisTool(int axis) = 0;
    virtual void SetMainWindowEnabled(bool enabled) = 0;
};

} // namespace korval
