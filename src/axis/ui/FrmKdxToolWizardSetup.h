#pragma once
// The set-up wizard's page window: for one axis at a time it mirrors the lists of that axis's
// set-up tool, which works hidden behind it, page by page (make, model, limits, test), and
// borrows the tool's motor test. It also owns the wizard itself, which the rules drive.
#include "LoadedFormsMenus.h"

#include "axis/ClsKdxWizard.h"
#include "axis/WizardDialogue.h"
#include "core/ui/FormBase.h"

#include <vector>

class QComboBox;
class QEventLoop;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace korval {

class FrmKdxToolSetAxis;
class PictureButton;

class FrmKdxToolWizardSetup final : public FormBase, public WizardDialogue {
    Q_OBJECT
public:
    FrmKdxToolWizardSetup();
    ~FrmKdxToolWizardSetup() override;

    ClsKdxWizard& Wizard() { return wizard_; }
    // The whole wizard, from the menu or a first start. Closing the main window meanwhile ends
    // the wizard as Cancel does, and leaves the program running.
    void RunWizard();

    // The axis tool's motor test works with this window while it is up.
    void ShowTestMessage(bool shown);
    void MirrorPosition(const QString& text);

    void PicNext_MouseDown();
    void PicBack_MouseDown();
    void PicCancel_MouseDown();
    void PicTestMotor_MouseDown();

    QComboBox* CmbSetBy() const { return setBy_; }
    QComboBox* CmbMotorSetting() const { return motor_; }
    QComboBox* CmbLimits() const { return limits_; }

    // The pages, as the wizard's rules ask for them.
    void ShowMessage(const std::string& text) override;
    void HideMessage() override;
    void DetectKdx() override;
    void MarkAxisTools(bool wizardDriven) override;
    void HideAxisTools() override;
    void LoadAxis(int axis) override;
    PageEnd ShowPage(WizardPage page, const std::string& instruction) override;
    void ApplyPage(WizardPage page) override;
    void HideAxisTool(int axis) override;
    void SetMainWindowEnabled(bool enabled) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void CmbSetBy_Click();
    void endPage(PageEnd end);
    void pressed(PictureButton* button, double pause, PageEnd end);
    void hideEveryControl();
    std::vector<QWidget*> controlsOf(WizardPage page) const;
    FrmKdxToolSetAxis* axisTool(int axis) const;

    QLabel* instructions_;
    QGroupBox* frameMotor_;
    QLabel* lblSetBy_;
    QComboBox* setBy_;
    QLabel* lblMotor_;
    QComboBox* motor_;
    QGroupBox* frameLimit_;
    QComboBox* limits_;
    QGroupBox* frameTest_;
    PictureButton* test_;
    QLabel* lblCurrentPosition_;
    QLineEdit* position_;
    QLabel* lblPosition_;
    QLabel* message_;
    PictureButton* back_;
    PictureButton* next_;
    PictureButton* cancel_;

    LoadedFormsMenus menus_;
    ClsKdxWizard wizard_;
    QEventLoop* page_ = nullptr; // while a page waits for its end
    bool stepDone_ = true;       // WizardStepDone
    PageEnd end_ = PageEnd::Next;
    int aborted_ = 0;
};

} // namespace korval
