#pragma once
// The set-up wizard: from the driver's two motor counts it works out which axes exist,
// switches the axis menus and option buttons to match, and takes the user through each axis,
// asking where the count leaves a doubt.
#include "MotorTest.h"
#include "WizardDialogue.h"
#include "WizardMenus.h"

#include "core/ClsTimeDelay.h"
#include "core/Prompts.h"
#include "link/ClsDriverKdx.h"

#include <array>
#include <cstdint>
#include <string>

namespace korval {

// The driver's actual number of motors: a plain count for 1 to 4, otherwise an arrangement.
enum class MotorArrangement : std::int32_t {
    BackwardsThree = -3, // a KDX-1 wired before a KDX-2
    MasterOnly = 0,      // axis 1 certain, axis 2 in doubt
    One = 1,
    Two = 2,
    Three = 3,
    Four = 4,
    OneDashOne = 11,                       // two KDX-1: axes 1 and 3
    Unknown = 64,                          // ask axis by axis
    GuessThree = 101,                      // axes 1 and 3 certain, 2 in doubt
    GuessFour = 102,                       // axes 1, 3 and 4 certain, 2 in doubt
    GuessOneDashOneOrBackwardsThree = 103, // axes 1 and 3 certain, 4 in doubt
    GuessThreeOrFour = 104,                // axes 1, 2 and 3 certain, 4 in doubt
    GuessUnknownCombo = 105,               // axes 1 and 3 certain, 2 and 4 in doubt
};

class ClsKdxWizard {
public:
    ClsKdxWizard(ClsDriverKdx& driver, ClsTimeDelay& delay, Prompts& prompts, WizardMenus& menus,
                 WizardDialogue& dialogue);

    bool WizardActive = false;
    // Set by a test that was not kept: the axis starts over. Cleared by a kept test.
    bool RestartAxis = false;
    // The axis a page works on, for the test button.
    std::int32_t CurrentAxis = 0;
    // The user ended the wizard: Cancel, the page window's close box, or the detect window's
    // abort while the wizard searches. Read after every step.
    bool Cancelled = false;
    bool NextPressed = false;
    std::int32_t PossibleMotors = 0;
    std::int32_t ActualCode = 0;
    std::array<std::int32_t, 4> StoredMotorSettings{};

    void DetectKdx();
    void DetectPossibleNumOfMotors();
    void DetectActualNumOfMotors();
    void DetectMotorSetting();
    void RunWizard();
    void CancelWizard();
    void WizardAxis();

    // One handler for each arrangement the driver can report.
    void GuessMotors();
    void OneMotor();
    void TwoMotors();
    void ThreeMotors();
    void FourMotors();
    void OneDashOne();
    void BackwardsThree();
    void GuessMasterOnly();
    void GuessThree();
    void GuessFour();
    void GuessOneDashOneOrBackwardsThree();
    void GuessThreeOrFour();
    void GuessUnknownCombo();

    // How the test page ends after a motor test with this outcome.
    static PageEnd AfterTest(MotorTestOutcome outcome);

private:
    void runHandler();
    void setAxisMenus(bool axis1, bool axis2, bool axis3, bool axis4);
    void enableAxis(int axis);
    bool visit(int axis);                                     // false once cancelled
    bool askThenVisit(const std::string& question, int axis); // false once cancelled
    bool enableThenVisit(int axis);
    bool showPage(WizardPage page, const std::string& instruction); // false when cancelled
    void loadAxis(int axis);

    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
    Prompts& prompts_;
    WizardMenus& menus_;
    WizardDialogue& dialogue_;
};

} // namespace korval
