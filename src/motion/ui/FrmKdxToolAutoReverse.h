#pragma once
// The AutoReverse tool: the user fills in the frames left to right, watches the generated code
// appear beside them, and tests the program, stores it in the controller or saves it as a script.
// A second view previews the motion on a virtual controller. Every decision is the generator's:
// a handler reads the controls into its settings, lets it act, and shows what it made.
#include "core/ui/FormBase.h"
#include "motion/AutoReverseGenerator.h"
#include "motion/AutoReverseTeach.h"
#include "motion/ClsJog.h"
#include "motion/KdxAutoReverseController.h"

#include <array>
#include <functional>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace korval {

class PictureButton;
class PreviewPanel;

class FrmKdxToolAutoReverse final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolAutoReverse();
    ~FrmKdxToolAutoReverse() override;

    AutoReverseGenerator& Generator() { return gen_; }

    // The Stop button's last step: both position boxes tidied as positions, as the motor may have
    // been stopped in the middle of a teaching jog.
    void FormatPositions();

    void PicTestScript_MouseDown();
    void PicSaveToKdx_MouseDown();
    void PicSaveToFileButton_MouseDown();
    void TestCode();
    void SaveToKdx();
    void SaveToFile();

    // The preview view, shown and run afresh.
    void ShowPreview();
    PreviewPanel* Preview() const { return preview_; }
    QTabWidget* Views() const { return views_; }

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildProgramView();
    QGroupBox* buildMotor();
    QGroupBox* buildStart();
    QGroupBox* buildOptions();
    QGroupBox* buildMove();
    QGroupBox* buildReturn();
    QGroupBox* buildLoop();
    QGroupBox* buildCode();
    QComboBox* combo(const char* name, const std::vector<std::string>& entries, QWidget* parent);
    QLineEdit* textBox(const char* name, QWidget* parent);
    QLabel* label(const char* name, const char* caption, QWidget* parent);
    QPushButton* jogButton(const char* name, const char* caption, TeachFrame frame, bool positive,
                           QWidget* parent);
    void connectControls();

    // A user's choice: the controls into the settings, the generator's act, the result shown.
    void choose(const std::function<void()>& act);
    void readControls();
    void writeControls();
    void layOut();
    // The three buttons' common frame around their action.
    void pressButton(PictureButton* button, void (FrmKdxToolAutoReverse::*action)());
    void switchFramesOff(bool off);
    // Generates the program for the action, then runs it, stores it or saves it.
    void act(RunSaveAction action);

    KdxAutoReverseController kdx_;
    AutoReverseGenerator gen_;
    ClsJog jog_;
    int stopped_ = 0; // the main window's Stopped subscription

    QTabWidget* views_ = nullptr;
    PreviewPanel* preview_ = nullptr;
    std::array<QRadioButton*, 4> motors_{};
    std::array<QGroupBox*, 5> frames_{}; // Start, Options, Move, Return, Loop
    std::array<PictureButton*, 3> buttons_{};
};

} // namespace korval
