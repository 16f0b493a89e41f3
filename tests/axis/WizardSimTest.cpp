// The wizard through the real driver and the virtual controller: the driver's probe decides the
// arrangement, and each axis's test page runs the real motor test, whose kept settings end up
// in the controller.
#include "FakeDriver.h"
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
        if (page != WizardPage::Test || !testMotors) {
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
    bool testMotors = true;

    // The axes whose two menus are on, as "1-3-"; "x" where the two differ.
    std::string axisMenus() {
        std::string out;
        for (int a = 1; a <= 4; ++a) {
            const bool set = menus["MnuToolsSetUpAxis" + std::to_string(a)];
            const bool attached = menus["MnuToolsSetUpAttachedAxis" + std::to_string(a)];
            out += set != attached ? 'x' : set ? static_cast<char>('0' + a) : '-';
        }
        return out;
    }
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

// Every arrangement the driver can tell, from the chain itself: the code it derives, the questions
// the wizard puts (answered by script), the menus it leaves on and the axes it takes the user
// through. The wizard's own pauses pass at once here; the line keeps its real time.
TEST_F(WizardSim, EachChainLeadsToItsArrangementQuestionsMenusAndAxes) {
    const std::string first = "Axis Setup: Do you have a motor 2 on the 1st KDX?";
    const std::string second = "Axis Setup: Do you have a motor 2 on the 2nd KDX?";
    const auto onAxis = [](int a) {
        return "Axis Setup: Do you have a motor connected to axis " + std::to_string(a) + "?";
    };
    const std::string cabling = "Error: KDX Connections: KORVAL has determined that you have a "
                                "KDX3, but is connected incorrectly";
    const struct {
        const char* options;
        int possible, code;
        std::vector<Prompts::Answer> answers;
        std::vector<std::string> asked;
        const char* menus;
        std::vector<int> visited;
    } cases[] = {
        {"arrangement=1", 2, 1, {}, {}, "1---", {1}},
        {"arrangement=2", 2, 2, {}, {}, "12--", {1, 2}},
        {"arrangement=2+1", 4, 3, {}, {}, "123-", {1, 2, 3}},
        {"arrangement=2+2", 4, 4, {}, {}, "123-", {1, 2, 3, 4}},
        {"arrangement=1+1", 4, 11, {}, {}, "1-3-", {1, 3}},
        {"arrangement=1+2", 4, -3, {}, {cabling}, "1-34", {1, 3, 4}},
        {"arrangement=2,silent=2", 2, 0, {Yes}, {first}, "123-", {1, 2}},
        {"arrangement=2+1,silent=2", 4, 101, {No}, {first}, "1-3-", {1, 3}},
        {"arrangement=2+2,silent=2", 4, 102, {Yes}, {first}, "123-", {1, 2, 3, 4}},
        {"arrangement=1+2,silent=4", 4, 103, {Yes}, {second}, "1--4", {1, 3, 4}},
        {"arrangement=2+2,silent=4", 4, 104, {No}, {second}, "1234", {1, 2, 3}},
        {"arrangement=2+2,silent=24", 4, 105, {No, Yes}, {first, second}, "1-34", {1, 3, 4}},
        {"silent=1", 2, 64, {Yes}, {onAxis(2)}, "12--", {1, 2}},
        {"arrangement=2+2,silent=1",
         4,
         64,
         {No, Yes, No},
         {onAxis(2), onAxis(3), onAxis(4)},
         "1-3-",
         {1, 3}},
    };
    VirtualClock pauses;
    ClsTimeDelay quick{pauses};
    windows.testMotors = false;
    for (const auto& c : cases) {
        startSim(c.options);
        prompts = ScriptedPrompts{};
        prompts.answers.assign(c.answers.begin(), c.answers.end());
        windows.menus.clear();
        windows.loaded.clear();
        ClsKdxWizard run{kdx, quick, prompts, windows, windows};
        run.RunWizard();
        auto asked = c.asked;
        asked.push_back("Set-Up Wizard: KDX is now configured");
        std::vector<std::string> shown;
        for (const auto& box : prompts.shown) {
            shown.push_back(box.substr(0, box.find("\r\n")));
        }
        EXPECT_EQ(run.PossibleMotors, c.possible) << c.options;
        EXPECT_EQ(run.ActualCode, c.code) << c.options;
        EXPECT_EQ(shown, asked) << c.options;
        EXPECT_EQ(windows.axisMenus(), c.menus) << c.options;
        EXPECT_EQ(windows.loaded, c.visited) << c.options;
        TearDown();
    }
}
