// The wizard's flow with every question answered by script: for each arrangement the driver
// reports, the questions put, the menus left on and the axes taken through the pages.
#include "FakeDriver.h"
#include "axis/AbsentAxisControls.h"
#include "axis/ClsKdxWizard.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>

using namespace korval;
using namespace korval::testing;

namespace {

const char* pageName(WizardPage page) {
    const char* const names[] = {"make", "model", "limits", "test"};
    return names[static_cast<int>(page)];
}

// The windows: menus and option buttons as states, everything else as a log of events. Each
// page ends by the next scripted end for that page, or goes forward (the test is kept).
struct FakeWindows final : WizardMenus, WizardDialogue {
    std::map<std::string, bool> menus;
    std::optional<bool> optMotor34;
    std::vector<std::string> log;
    std::vector<int> loaded;
    std::map<WizardPage, std::deque<PageEnd>> ends;
    std::function<void()> onDetect;
    int shownAxis = 0;

    void SetMenuEnabled(const std::string& menu, bool on) override { menus[menu] = on; }
    void SetOptMotor34Enabled(bool on) override { optMotor34 = on; }
    void ShowMessage(const std::string& text) override { log.push_back("message " + text); }
    void HideMessage() override {}
    void DetectKdx() override {
        log.push_back("detect");
        if (onDetect) {
            onDetect();
        }
    }
    void MarkAxisTools(bool driven) override { log.push_back(driven ? "grey" : "ungrey"); }
    void HideAxisTools() override { shownAxis = 0; }
    void LoadAxis(int axis) override {
        loaded.push_back(axis);
        shownAxis = axis;
        log.push_back("load " + std::to_string(axis));
    }
    PageEnd ShowPage(WizardPage page, const std::string& instruction) override {
        log.push_back(std::string(pageName(page)) + ": " + instruction);
        auto& queue = ends[page];
        if (queue.empty()) {
            return page == WizardPage::Test ? PageEnd::TestKept : PageEnd::Next;
        }
        const auto end = queue.front();
        queue.pop_front();
        return end;
    }
    void ApplyPage(WizardPage page) override {
        log.push_back(std::string("apply ") + pageName(page));
    }
    void HideAxisTool(int axis) override {
        EXPECT_EQ(axis, shownAxis);
        shownAxis = 0;
    }
    void SetMainWindowEnabled(bool on) override { log.push_back(on ? "main on" : "main off"); }

    // The axes whose two menus are on, as "1-3-"; "x" where the two differ or were never set.
    std::string axisMenus() const {
        std::string out;
        for (int axis = 1; axis <= 4; ++axis) {
            const auto a = menus.find("MnuToolsSetUpAxis" + std::to_string(axis));
            const auto b = menus.find("MnuToolsSetUpAttachedAxis" + std::to_string(axis));
            if (a == menus.end() || b == menus.end() || a->second != b->second) {
                out += 'x';
            } else {
                out += a->second ? static_cast<char>('0' + axis) : '-';
            }
        }
        return out;
    }
    std::string visited() const {
        std::string out;
        for (const int axis : loaded) {
            out += (out.empty() ? "" : ",") + std::to_string(axis);
        }
        return out;
    }
    std::vector<std::string> pagesOf(const std::vector<std::string>& from) const {
        std::vector<std::string> out;
        for (const auto& e : from) {
            if (e.rfind("load", 0) == 0 || e.rfind("apply", 0) == 0 ||
                e.find(": ") != std::string::npos) {
                out.push_back(e.substr(0, e.find(':')));
            }
        }
        return out;
    }
};

struct WizardFixture : ::testing::Test {
    VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    ScriptedPrompts prompts;
    FakeWindows windows;
    ClsKdxWizard wizard{driver, delay, prompts, windows, windows};

    void SetUp() override { driver.AttachTable(FakeTable()); }
    void run(int possible, int actual) {
        fake.possible = possible;
        fake.actual = actual;
        wizard.RunWizard();
    }
    // Each box as a short name, the closing message as "done".
    std::vector<std::string> boxes() const {
        static const std::map<std::string, std::string> names = {
            {"Axis Setup: Do you have a motor 2 on the 1st KDX?", "1st"},
            {"Axis Setup: Do you have a motor 2 on the 2nd KDX?", "2nd"},
            {"Axis Setup: Do you have a motor connected to axis 2?", "axis 2"},
            {"Axis Setup: Do you have a motor connected to axis 3?", "axis 3"},
            {"Axis Setup: Do you have a motor connected to axis 4?", "axis 4"},
            {"Set-Up Wizard: KDX is now configured", "done"},
        };
        std::vector<std::string> out;
        for (const auto& shown : prompts.asked) {
            const auto n = names.find(shown);
            out.push_back(n != names.end()                                ? n->second
                          : shown.rfind("Error: KDX Connections", 0) == 0 ? "connections"
                                                                          : shown);
        }
        return out;
    }
    std::size_t writes() const {
        return std::count_if(fake.calls.begin(), fake.calls.end(), [](const std::string& c) {
            return c.rfind("setM", 0) == 0 || c.rfind("setL", 0) == 0;
        });
    }
};

} // namespace

TEST_F(WizardFixture, EachArrangementAsksItsQuestionsSetsItsMenusAndVisitsItsAxes) {
    const struct {
        int possible;
        int code;
        std::vector<Prompts::Answer> answers;
        std::vector<std::string> asked;
        const char* menus;
        const char* visited;
    } cases[] = {
        {2, 1, {}, {}, "1---", "1"},
        {2, 2, {}, {}, "12--", "1,2"},
        {4, 3, {}, {}, "123-", "1,2,3"},
        {4, 4, {}, {}, "123-", "1,2,3,4"},
        {4, 11, {}, {}, "1-3-", "1,3"},
        {4, -3, {}, {"connections"}, "1-34", "1,3,4"},
        {2, 0, {Yes}, {"1st"}, "123-", "1,2"},
        {2, 0, {No}, {"1st"}, "1-3-", "1"},
        {4, 101, {Yes}, {"1st"}, "123-", "1,2,3"},
        {4, 101, {No}, {"1st"}, "1-3-", "1,3"},
        {4, 102, {Yes}, {"1st"}, "123-", "1,2,3,4"},
        {4, 102, {No}, {"1st"}, "1-3-", "1,3,4"},
        {4, 103, {Yes}, {"2nd"}, "1--4", "1,3,4"},
        {4, 103, {No}, {"2nd"}, "1---", "1,3"},
        {4, 104, {Yes}, {"2nd"}, "1234", "1,2,3,4"},
        {4, 104, {No}, {"2nd"}, "1234", "1,2,3"},
        {4, 105, {Yes, No}, {"1st", "2nd"}, "123-", "1,2,3"},
        {4, 105, {No, Yes}, {"1st", "2nd"}, "1-34", "1,3,4"},
        {2, 64, {Yes}, {"axis 2"}, "12--", "1,2"},
        {2, 64, {No}, {"axis 2"}, "1---", "1"},
        {4, 64, {No, Yes, Yes}, {"axis 2", "axis 3", "axis 4"}, "1-34", "1,3,4"},
        {4, 64, {Yes, No, No}, {"axis 2", "axis 3", "axis 4"}, "12--", "1,2"},
        {3, 64, {}, {}, "----", ""},
        {2, 5, {}, {}, "xx--", ""}, // only the possible count has touched the menus
        {4, 12, {}, {}, "xx34", ""},
    };
    for (const auto& c : cases) {
        SetUp();
        prompts = ScriptedPrompts{};
        prompts.answers.assign(c.answers.begin(), c.answers.end());
        windows = FakeWindows{};
        run(c.possible, c.code);
        const auto label = "code " + std::to_string(c.code) + " of " + std::to_string(c.possible);
        auto asked = c.asked;
        asked.push_back("done");
        EXPECT_EQ(boxes(), asked) << label;
        EXPECT_EQ(windows.axisMenus(), c.menus) << label;
        EXPECT_EQ(windows.visited(), c.visited) << label;
        EXPECT_TRUE(prompts.answers.empty()) << label << ": answers left over";
        EXPECT_FALSE(wizard.WizardActive);
    }
}

TEST_F(WizardFixture, ThePossibleCountSwitchesTheThirdAndFourthAxisEverywhere) {
    const struct {
        int possible;
        std::optional<bool> on;
    } cases[] = {{2, false}, {4, true}, {3, std::nullopt}, {0, std::nullopt}};
    for (const auto& c : cases) {
        SetUp();
        windows = FakeWindows{};
        fake.possible = c.possible;
        wizard.DetectPossibleNumOfMotors();
        EXPECT_EQ(windows.optMotor34, c.on) << c.possible;
        for (const char* menu :
             {"MnuToolsSetUpAxis3", "MnuToolsSetUpAxis4", "MnuToolsSetUpAttachedAxis3",
              "MnuToolsSetUpAttachedAxis4", "MnuToolsQuickMoveSimultaneous"}) {
            const auto m = windows.menus.find(menu);
            EXPECT_EQ(m == windows.menus.end() ? std::nullopt : std::optional<bool>(m->second),
                      c.on)
                << menu << " with " << c.possible;
        }
        EXPECT_EQ(windows.menus.size(), c.on ? 5u : 0u);
        EXPECT_EQ(windows.log, std::vector<std::string>{"message Detecting Possible Motors"});
    }
}

TEST_F(WizardFixture, AnAxisGoesThroughItsFourPagesAfterLoading) {
    run(2, 1);
    EXPECT_EQ(windows.log,
              (std::vector<std::string>{
                  "grey", "detect", "message Detecting Possible Motors",
                  "message Detecting Actual Motors", "message Loading Axis 1 Information", "load 1",
                  "main off",
                  "make: Select your motor manufacturer (or set by 'Motor Setting') for axis 1",
                  "apply make", "main off",
                  "model: Select your motor model (or Motor Setting) for axis 1", "apply model",
                  "main off", "limits: Select your limits type for axis 1", "apply limits",
                  "main off", "test: Test your motor for axis 1", "main on"}));
    EXPECT_EQ(wizard.StoredMotorSettings, (std::array<std::int32_t, 4>{0, 0, 0, 0}));
    EXPECT_EQ(wizard.CurrentAxis, 1);
}

TEST_F(WizardFixture, BackGoesWhereEachPageSays) {
    const struct {
        WizardPage page;
        std::vector<std::string> after; // what follows the page's Back
    } cases[] = {
        {WizardPage::Make, {"apply make", "load 1", "make"}},
        {WizardPage::Model, {"apply model", "load 1", "make"}},
        {WizardPage::Limits, {"apply limits", "model"}},
        {WizardPage::Test, {"limits"}},
    };
    for (const auto& c : cases) {
        SetUp();
        windows = FakeWindows{};
        windows.ends[c.page] = {PageEnd::Back};
        run(2, 1);
        const auto pages = windows.pagesOf(windows.log);
        const auto first = std::find(pages.begin(), pages.end(), pageName(c.page));
        ASSERT_NE(first, pages.end());
        const std::vector<std::string> following(first + 1,
                                                 first + 1 + static_cast<long>(c.after.size()));
        EXPECT_EQ(following, c.after) << pageName(c.page);
        EXPECT_EQ(boxes().back(), "done");
    }
}

TEST_F(WizardFixture, ATestNotKeptStartsTheAxisOverUntilOneIsKept) {
    windows.ends[WizardPage::Test] = {PageEnd::TestNotKept, PageEnd::Next, PageEnd::TestKept};
    run(2, 1);
    EXPECT_EQ(windows.visited(), "1,1,1") << "Next after a refused test starts over too";
    EXPECT_FALSE(wizard.RestartAxis);
    EXPECT_EQ(boxes(), std::vector<std::string>{"done"});
}

TEST_F(WizardFixture, NextOnTheTestPageWithoutATestEndsTheAxis) {
    windows.ends[WizardPage::Test] = {PageEnd::Next};
    run(2, 2);
    EXPECT_EQ(windows.visited(), "1,2");
}

TEST_F(WizardFixture, CancelOnAnyPageEndsTheWizardAndWritesNothing) {
    for (const auto page :
         {WizardPage::Make, WizardPage::Model, WizardPage::Limits, WizardPage::Test}) {
        SetUp();
        windows = FakeWindows{};
        prompts = ScriptedPrompts{};
        windows.ends[page] = {PageEnd::Cancel};
        run(4, 4);
        EXPECT_EQ(windows.visited(), "1") << pageName(page);
        EXPECT_TRUE(wizard.Cancelled);
        EXPECT_FALSE(wizard.WizardActive);
        EXPECT_TRUE(prompts.asked.empty()) << "no closing message";
        EXPECT_EQ(writes(), 0u);
        EXPECT_EQ(std::count(fake.calls.begin(), fake.calls.end(), "getM1"), 0)
            << "the motor settings are not read back after a cancel";
        // The handler cancels, and the wizard once more: harmless, as it only tidies windows.
        const std::vector<std::string> tail(windows.log.end() - 3, windows.log.end());
        EXPECT_EQ(tail, (std::vector<std::string>{"main on", "ungrey", "ungrey"}));
        const auto pages = windows.pagesOf(windows.log);
        EXPECT_EQ(pages.back(), pageName(page)) << "nothing is applied after Cancel";
    }
}

TEST_F(WizardFixture, CancelOnALaterAxisKeepsWhatEarlierAxesDid) {
    windows.ends[WizardPage::Make] = {PageEnd::Next, PageEnd::Next, PageEnd::Cancel};
    run(4, 4);
    EXPECT_EQ(windows.visited(), "1,2,3");
    EXPECT_EQ(windows.axisMenus(), "123-");
}

TEST_F(WizardFixture, AbortWhileSearchingEndsTheWizardBeforeAnyDetection) {
    windows.onDetect = [this] { wizard.Cancelled = true; };
    run(4, 4);
    EXPECT_TRUE(fake.calls.empty());
    EXPECT_EQ(windows.log, (std::vector<std::string>{"grey", "detect", "ungrey"}));
    EXPECT_TRUE(prompts.asked.empty());
}

TEST_F(WizardFixture, TheMotorSettingsAreReadBackForThePossibleAxes) {
    fake.motor = {{1, 3}, {2, 5}, {3, 1}, {4, 6}};
    run(4, 4);
    EXPECT_EQ(wizard.StoredMotorSettings, (std::array<std::int32_t, 4>{3, 5, 1, 6}));
    SetUp();
    fake.motor = {{1, 4}, {2, 2}, {3, 1}, {4, 6}};
    wizard.StoredMotorSettings = {};
    run(2, 2);
    EXPECT_EQ(wizard.StoredMotorSettings, (std::array<std::int32_t, 4>{4, 2, 0, 0}));
}

TEST_F(WizardFixture, TheConnectionMessageComesBeforeAnyPage) {
    run(4, -3);
    ASSERT_GE(prompts.asked.size(), 1u);
    EXPECT_EQ(prompts.asked[0],
              "Error: KDX Connections: KORVAL has determined that you have a KDX3, but is "
              "connected incorrectly\r\n\r\nYou should cancel this wizard and reconnect your "
              "KDX's in the following order\r\n\r\n\tKDX-2 should be 1st, then the KDX-1\r\n\t"
              "Then connect the RS232 cable to the KDX-2");
    EXPECT_EQ(prompts.icons[0], Prompts::Icon::Information);
}

TEST(WizardTestPage, OnlyAKeptTestEndsThePageForward) {
    EXPECT_EQ(ClsKdxWizard::AfterTest(MotorTestOutcome::Kept), PageEnd::TestKept);
    for (const auto o : {MotorTestOutcome::Restored, MotorTestOutcome::NotRestored,
                         MotorTestOutcome::NotStarted}) {
        EXPECT_EQ(ClsKdxWizard::AfterTest(o), PageEnd::TestNotKept);
    }
}

TEST(AbsentAxisControls, OnlyTheAxesLeftWithoutAMenuLoseTheirControlsInTheMotionTools) {
    const struct {
        std::vector<int> on;
        std::vector<std::string> off; // "form control"
    } cases[] = {
        {{2, 3, 4}, {}},
        {{2, 3},
         {"FrmKdxToolAutoReverse OptMotor4", "FrmKdxToolQuickMoveSingle OptMotor4",
          "FrmKdxToolQuickMoveSingle FrameAdvStep4", "FrmKdxToolVirtualJog OptMotor4"}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> off;
        for (const auto& fc : ControlsOfAbsentAxes([&](int axis) {
                 return std::find(c.on.begin(), c.on.end(), axis) != c.on.end();
             })) {
            off.push_back(fc.form + " " + fc.control);
        }
        EXPECT_EQ(off, c.off);
    }
    EXPECT_EQ(ControlsOfAbsentAxes([](int) { return false; }).size(), 12u);
}
