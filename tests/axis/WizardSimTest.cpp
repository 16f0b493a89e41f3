// The wizard through the real driver and the virtual controller: the driver's probe decides the
// arrangement, and each axis's test page runs the real motor test, whose kept settings end up
// in the controller.
#include "ScriptedPrompts.h"
#include "SimLink.h"
#include "axis/AxisSet.h"
#include "axis/ClsKdxWizard.h"
#include "axis/LimitList.h"

#include <map>

using namespace korval;
using namespace korval::testing;

namespace {

struct QuietView final : MotorTestView {
    void ShowPleaseWait(bool) override {}
    void SetHourglass(bool) override {}
    void ShowPosition(const std::string&) override {}
    void SelectSettings(int, int) override {}
};

// A wizard window that picks motor setting axis + 1 and Auto-Detect on every axis, and whose
// test button runs the motor test.
struct BenchWindows final : WizardMenus, WizardDialogue {
    AxisSet& axes;
    MotorTest& test;
    std::map<std::string, bool> menus;
    std::vector<int> loaded;
    int axis = 0;

    BenchWindows(AxisSet& a, MotorTest& t) : axes(a), test(t) {}
    void SetMenuEnabled(const std::string& menu, bool on) override { menus[menu] = on; }
    void SetOptMotor34Enabled(bool) override {}
    void ShowMessage(const std::string&) override {}
    void HideMessage() override {}
    void DetectKdx() override {} // the port is open already
    void MarkAxisTools(bool) override {}
    void HideAxisTools() override {}
    void LoadAxis(int a) override {
        axis = a;
        loaded.push_back(a);
    }
    PageEnd ShowPage(WizardPage page, const std::string&) override {
        if (page != WizardPage::Test) {
            return PageEnd::Next;
        }
        const auto result = test.Run(*axes.ByNumber(axis), axis, MotorMake::MotorSetting, axis + 1,
                                     ListIndexToLimitValue(2), view);
        return ClsKdxWizard::AfterTest(result.outcome);
    }
    void ApplyPage(WizardPage) override {}
    void HideAxisTool(int) override {}
    void SetMainWindowEnabled(bool) override {}
    QuietView view;
};

struct WizardSim : SimLink {
    AxisSet axes{kdx};
    ScriptedPrompts prompts;
    MotorTest test{kdx, delay, prompts, {}};
    BenchWindows windows{axes, test};
    ClsKdxWizard wizard{kdx, delay, prompts, windows, windows};
};

} // namespace

TEST_F(WizardSim, ThreeCertainAxesAndADoubtfulFourthEndWithTheKeptSettingsInTheController) {
    startSim("arrangement=2+2,silent=4"); // axis 4 never answers: the driver is in doubt
    // Each of the three tests moved well and is kept; then no motor 2 on the second controller.
    prompts.answer({Yes, Yes, Yes, Yes, Yes, Yes, No});
    wizard.RunWizard();
    EXPECT_EQ(wizard.PossibleMotors, 4);
    EXPECT_EQ(wizard.ActualCode, 104);
    EXPECT_EQ(windows.loaded, (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(windows.menus["MnuToolsSetUpAxis4"]) << "on, though the answer was No";
    EXPECT_EQ(prompts.shown.back(), "Set-Up Wizard: KDX is now configured");
    EXPECT_EQ(query("getM1M,") + query("getM2M,") + query("getM3M,"), "2\r3\r4\r");
    EXPECT_EQ(query("getL1M,"), "0\r");
    EXPECT_EQ(wizard.StoredMotorSettings, (std::array<std::int32_t, 4>{2, 3, 4, -1}))
        << "the silent axis reads as the driver's no-answer";
}
