#include "ClsKdxWizard.h"

namespace korval {

namespace {

constexpr const char* AxisSetup = "Axis Setup";
constexpr const char* Motor2OnFirst = "Do you have a motor 2 on the 1st KDX?";
constexpr const char* Motor2OnSecond = "Do you have a motor 2 on the 2nd KDX?";

std::string motorOnAxis(int axis) {
    return "Do you have a motor connected to axis " + std::to_string(axis) + "?";
}

std::string axisMenu(int axis) {
    return "MnuToolsSetUpAxis" + std::to_string(axis);
}
std::string attachedMenu(int axis) {
    return "MnuToolsSetUpAttachedAxis" + std::to_string(axis);
}

// A driver without the operation counts as one that answers 0.
std::int32_t ask(std::int32_t (*operation)()) {
    return operation != nullptr ? operation() : 0;
}

} // namespace

ClsKdxWizard::ClsKdxWizard(ClsDriverKdx& driver, ClsTimeDelay& delay, Prompts& prompts,
                           WizardMenus& menus, WizardDialogue& dialogue)
    : driver_(driver), delay_(delay), prompts_(prompts), menus_(menus), dialogue_(dialogue) {}

void ClsKdxWizard::DetectKdx() {
    dialogue_.DetectKdx();
}

void ClsKdxWizard::DetectPossibleNumOfMotors() {
    dialogue_.ShowMessage("Detecting Possible Motors");
    PossibleMotors = ask(driver_.Table().PossibleNumOfMotors);
    if (PossibleMotors == 2 || PossibleMotors == 4) {
        const bool four = PossibleMotors == 4;
        for (const auto& menu : {axisMenu(3), axisMenu(4), attachedMenu(3), attachedMenu(4),
                                 std::string("MnuToolsQuickMoveSimultaneous")}) {
            menus_.SetMenuEnabled(menu, four);
        }
        menus_.SetOptMotor34Enabled(four);
    }
    dialogue_.HideMessage();
}

void ClsKdxWizard::DetectActualNumOfMotors() {
    delay_.TimeDelay(0.5);
    dialogue_.ShowMessage("Detecting Actual Motors");
    ActualCode = ask(driver_.Table().ActualNumOfMotors);
    dialogue_.HideMessage();
}

void ClsKdxWizard::DetectMotorSetting() {
    const int axes = PossibleMotors == 2 || PossibleMotors == 4 ? PossibleMotors : 0;
    for (int axis = 1; axis <= axes; ++axis) {
        StoredMotorSettings[axis - 1] = driver_.GetMotorSetting(axis);
    }
}

void ClsKdxWizard::RunWizard() {
    WizardActive = true;
    RestartAxis = false;
    Cancelled = false;
    dialogue_.MarkAxisTools(true);
    const auto cancelled = [this] {
        if (Cancelled) {
            WizardActive = false;
            CancelWizard();
        }
        return Cancelled;
    };
    DetectKdx();
    if (cancelled()) {
        return;
    }
    DetectPossibleNumOfMotors();
    if (cancelled()) {
        return;
    }
    DetectActualNumOfMotors();
    runHandler();
    if (cancelled()) {
        return;
    }
    DetectMotorSetting();
    if (cancelled()) {
        return;
    }
    WizardActive = false;
    driver_.VerifyStatus();
    prompts_.Message("KDX is now configured", "Set-Up Wizard", Prompts::Icon::Information,
                     Prompts::Buttons::Ok);
}

void ClsKdxWizard::runHandler() {
    switch (static_cast<MotorArrangement>(ActualCode)) {
    case MotorArrangement::BackwardsThree:
        return BackwardsThree();
    case MotorArrangement::MasterOnly:
        return GuessMasterOnly();
    case MotorArrangement::One:
        return OneMotor();
    case MotorArrangement::Two:
        return TwoMotors();
    case MotorArrangement::Three:
        return ThreeMotors();
    case MotorArrangement::Four:
        return FourMotors();
    case MotorArrangement::OneDashOne:
        return OneDashOne();
    case MotorArrangement::Unknown:
        return GuessMotors();
    case MotorArrangement::GuessThree:
        return GuessThree();
    case MotorArrangement::GuessFour:
        return GuessFour();
    case MotorArrangement::GuessOneDashOneOrBackwardsThree:
        return GuessOneDashOneOrBackwardsThree();
    case MotorArrangement::GuessThreeOrFour:
        return GuessThreeOrFour();
    case MotorArrangement::GuessUnknownCombo:
        return GuessUnknownCombo();
    }
    // Any other code: no arrangement step, the wizard goes straight on.
}

void ClsKdxWizard::CancelWizard() {
    dialogue_.MarkAxisTools(false);
    dialogue_.HideAxisTools();
}

PageEnd ClsKdxWizard::AfterTest(MotorTestOutcome outcome) {
    return outcome == MotorTestOutcome::Kept ? PageEnd::TestKept : PageEnd::TestNotKept;
}

// ---- one axis, page by page ----------------------------------------------------------------

void ClsKdxWizard::loadAxis(int axis) {
    delay_.TimeDelay(0.5);
    dialogue_.ShowMessage("Loading Axis " + std::to_string(axis) + " Information");
    delay_.TimeDelay(1.0);
    dialogue_.LoadAxis(axis);
    dialogue_.HideMessage();
    driver_.VerifyStatus();
}

bool ClsKdxWizard::showPage(WizardPage page, const std::string& instruction) {
    dialogue_.SetMainWindowEnabled(false);
    switch (dialogue_.ShowPage(page, instruction)) {
    case PageEnd::Next:
        Cancelled = false;
        NextPressed = true;
        break;
    case PageEnd::Back:
        Cancelled = false;
        NextPressed = false;
        break;
    case PageEnd::Cancel:
        Cancelled = true;
        break;
    case PageEnd::TestKept:
        RestartAxis = false;
        NextPressed = true;
        break;
    case PageEnd::TestNotKept:
        RestartAxis = true;
        break;
    }
    if (Cancelled) {
        dialogue_.SetMainWindowEnabled(true);
    }
    return !Cancelled;
}

void ClsKdxWizard::WizardAxis() {
    const int axis = CurrentAxis;
    const auto forAxis = " for axis " + std::to_string(axis);
    dialogue_.HideAxisTools();
    enum class Step { Load, Make, Model, Limits, Test, Done } step = Step::Load;
    while (step != Step::Done) {
        switch (step) {
        case Step::Load:
            loadAxis(axis);
            step = Step::Make;
            break;
        case Step::Make:
            if (!showPage(WizardPage::Make,
                          "Select your motor manufacturer (or set by 'Motor Setting')" + forAxis)) {
                return;
            }
            dialogue_.ApplyPage(WizardPage::Make);
            step = NextPressed ? Step::Model : Step::Load;
            break;
        case Step::Model:
            if (!showPage(WizardPage::Model,
                          "Select your motor model (or Motor Setting)" + forAxis)) {
                return;
            }
            dialogue_.ApplyPage(WizardPage::Model);
            step = NextPressed ? Step::Limits : Step::Load;
            break;
        case Step::Limits:
            if (!showPage(WizardPage::Limits, "Select your limits type" + forAxis)) {
                return;
            }
            dialogue_.ApplyPage(WizardPage::Limits);
            step = NextPressed ? Step::Test : Step::Model;
            break;
        case Step::Test:
            if (!showPage(WizardPage::Test, "Test your motor" + forAxis)) {
                return;
            }
            // A test that was not kept starts the axis over, until one is kept.
            step = RestartAxis ? Step::Load : NextPressed ? Step::Done : Step::Limits;
            break;
        case Step::Done:
            break;
        }
    }
    dialogue_.HideAxisTool(axis);
    dialogue_.SetMainWindowEnabled(true);
}

// ---- the arrangements ----------------------------------------------------------------------

void ClsKdxWizard::setAxisMenus(bool axis1, bool axis2, bool axis3, bool axis4) {
    const bool on[] = {axis1, axis2, axis3, axis4};
    for (int axis = 1; axis <= 4; ++axis) {
        menus_.SetMenuEnabled(axisMenu(axis), on[axis - 1]);
        menus_.SetMenuEnabled(attachedMenu(axis), on[axis - 1]);
    }
}

void ClsKdxWizard::enableAxis(int axis) {
    menus_.SetMenuEnabled(axisMenu(axis), true);
    menus_.SetMenuEnabled(attachedMenu(axis), true);
}

bool ClsKdxWizard::visit(int axis) {
    CurrentAxis = axis;
    WizardAxis();
    if (Cancelled) {
        CancelWizard();
        return false;
    }
    return true;
}

bool ClsKdxWizard::enableThenVisit(int axis) {
    enableAxis(axis);
    return visit(axis);
}

bool ClsKdxWizard::askThenVisit(const std::string& question, int axis) {
    const auto answer =
        prompts_.Message(question, AxisSetup, Prompts::Icon::Question, Prompts::Buttons::YesNo);
    return answer != Prompts::Answer::Yes || enableThenVisit(axis);
}

void ClsKdxWizard::OneMotor() {
    setAxisMenus(true, false, false, false);
    visit(1);
}

void ClsKdxWizard::TwoMotors() {
    setAxisMenus(true, true, false, false);
    visit(1) && visit(2);
}

void ClsKdxWizard::ThreeMotors() {
    setAxisMenus(true, true, true, false);
    visit(1) && visit(2) && visit(3);
}

void ClsKdxWizard::FourMotors() {
    setAxisMenus(true, true, true, false); // axis 4 is set up with its menus left off
    visit(1) && visit(2) && visit(3) && visit(4);
}

void ClsKdxWizard::OneDashOne() {
    setAxisMenus(true, false, true, false);
    visit(1) && visit(3);
}

void ClsKdxWizard::BackwardsThree() {
    setAxisMenus(true, false, true, true);
    // Told, not refused: the user may cancel on the first page.
    prompts_.Message("KORVAL has determined that you have a KDX3, but is connected incorrectly"
                     "\r\n\r\nYou should cancel this wizard and reconnect your KDX's in the "
                     "following order\r\n\r\n\tKDX-2 should be 1st, then the KDX-1\r\n\tThen "
                     "connect the RS232 cable to the KDX-2",
                     "Error: KDX Connections", Prompts::Icon::Information, Prompts::Buttons::Ok);
    visit(1) && visit(3) && visit(4);
}

void ClsKdxWizard::GuessMasterOnly() {
    setAxisMenus(true, false, true, false); // axis 3 stays on though it is never visited
    visit(1) && askThenVisit(Motor2OnFirst, 2);
}

void ClsKdxWizard::GuessThree() {
    setAxisMenus(true, false, false, false);
    visit(1) && askThenVisit(Motor2OnFirst, 2) && enableThenVisit(3);
}

void ClsKdxWizard::GuessFour() {
    setAxisMenus(true, false, false, false);
    visit(1) && askThenVisit(Motor2OnFirst, 2) && enableThenVisit(3) && visit(4);
}

void ClsKdxWizard::GuessOneDashOneOrBackwardsThree() {
    setAxisMenus(true, false, false, false); // axis 3 is visited with its menus off
    visit(1) && visit(3) && askThenVisit(Motor2OnSecond, 4);
}

void ClsKdxWizard::GuessThreeOrFour() {
    setAxisMenus(true, true, true, true); // axis 4 stays on whatever the answer
    visit(1) && visit(2) && enableThenVisit(3) && askThenVisit(Motor2OnSecond, 4);
}

void ClsKdxWizard::GuessUnknownCombo() {
    setAxisMenus(true, false, false, false);
    visit(1) && askThenVisit(Motor2OnFirst, 2) && enableThenVisit(3) &&
        askThenVisit(Motor2OnSecond, 4);
}

void ClsKdxWizard::GuessMotors() {
    setAxisMenus(false, false, false, false);
    if (PossibleMotors != 2 && PossibleMotors != 4) {
        return;
    }
    const bool four = PossibleMotors == 4;
    setAxisMenus(true, false, false, false);
    menus_.SetOptMotor34Enabled(four);
    if (!visit(1) || !askThenVisit(motorOnAxis(2), 2) || !four) {
        return;
    }
    askThenVisit(motorOnAxis(3), 3) && askThenVisit(motorOnAxis(4), 4);
}

} // namespace korval
