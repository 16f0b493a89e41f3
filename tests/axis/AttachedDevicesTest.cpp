#include "FakeDriver.h"
#include "axis/AttachedChoice.h"
#include "axis/DeviceSettings.h"

#include <gtest/gtest.h>

using namespace korval;
using korval::testing::fake;

namespace {

using D = AttachedDevice;

// The checked boxes as letters: T thumbwheel, I analog input, A analog joystick, D digital
// joystick, J jog buttons.
std::string checked(const AttachedChecks& checks) {
    std::string out;
    const std::pair<D, char> boxes[] = {{D::Thumbwheel, 'T'},
                                        {D::AnalogInput, 'I'},
                                        {D::JoystickAnalog, 'A'},
                                        {D::JoystickDigital, 'D'},
                                        {D::JogSpeeds, 'J'}};
    for (const auto& [device, letter] : boxes) {
        if (checks.Checked(device)) {
            out += letter;
        }
    }
    return out;
}

} // namespace

TEST(AttachedChoice, CheckingABoxClearsTheBoxesItExcludes) {
    const struct {
        D device;
        bool check;
        const char* after;
    } clicks[] = {
        {D::JogSpeeds, true, "J"},        {D::JoystickAnalog, true, "AJ"},
        {D::JoystickDigital, true, "AD"}, {D::JogSpeeds, true, "AJ"},
        {D::AnalogInput, true, "IAJ"},    {D::Thumbwheel, true, "T"},
        {D::AnalogInput, true, "I"},      {D::Thumbwheel, true, "T"},
        {D::JoystickAnalog, true, "A"},   {D::JoystickDigital, true, "AD"},
        {D::JoystickDigital, false, "A"}, {D::Thumbwheel, false, "A"},
    };
    AttachedChecks checks;
    for (const auto& c : clicks) {
        checks.Click(c.device, c.check);
        EXPECT_EQ(checked(checks), c.after);
    }
}

TEST(AttachedChoice, EveryCheckedDeviceWithAWindowIsShown) {
    AttachedChecks checks;
    checks.Click(D::JoystickAnalog, true);
    checks.Click(D::JogSpeeds, true);
    checks.Click(D::AnalogInput, true);
    EXPECT_EQ(checks.WindowsShown(), (std::vector<D>{D::JogSpeeds, D::JoystickAnalog}));
    checks.Click(D::Thumbwheel, true);
    EXPECT_EQ(checks.WindowsShown(), std::vector<D>{D::Thumbwheel});
    checks.Click(D::Thumbwheel, false);
    EXPECT_TRUE(checks.WindowsShown().empty());
}

// What the windows' end-to-end tests leave out: unusual texts, cleaned in their boxes whether or
// not the setting is sent.
TEST(DeviceSettings, UnusualSpeedsAndDeadBandsAreCleanedInTheirBoxes) {
    const struct {
        const char* typed;
        bool disabled;
        const char* sent;
        const char* shown;
    } jogs[] = {
        {"-5", false, "C,setj3M0,setJ3M0,,rsm", "0"},
        {"", false, "C,setj3M0,setJ3M0,,rsm", "0"},
        {"9999", true, "C,setj3M0,setJ3M0,,rsm", "6000"},
    };
    for (const auto& c : jogs) {
        std::string text = c.typed;
        EXPECT_EQ(JogButtonsSetting(3, text, c.disabled), c.sent) << c.typed;
        EXPECT_EQ(text, c.shown);
    }
    for (const auto& [typed, shown] :
         {std::pair{"19.9", "20"}, {"-5", "20"}, {"20", "20"}, {"100.5", "100"}}) {
        std::string text = typed;
        EXPECT_EQ(DeadBandSetting(text), std::string("setDA") + shown + ",rsm") << typed;
        EXPECT_EQ(text, shown);
    }
    const struct {
        const char* primary;
        const char* secondary;
        const char* sent; // empty: refused
    } digital[] = {
        {"1,500", "900", ""}, // the comma ends the primary speed
        {"1000", "-3", "C,setj4M1000,setJ4M0,,rsm"},
    };
    for (const auto& c : digital) {
        std::string primary = c.primary;
        std::string secondary = c.secondary;
        EXPECT_EQ(DigitalJoystickSetting(4, primary, secondary, false).value_or(""), c.sent)
            << c.primary << " " << c.secondary;
    }
    std::string primary = "6500";
    std::string secondary = "x";
    DigitalJoystickSetting(1, primary, secondary, false);
    EXPECT_EQ(primary + "/" + secondary, "6000/0") << "both boxes are cleaned";
    EXPECT_EQ(AnalogJoystickSetting(3, -1, 5), "C,setjA3M0,setJA3M0,,rsm") << "no row selected";
    EXPECT_EQ(SecondarySpeedRow(-1), 1);
}

TEST(DeviceSettings, ASettingIsConfirmedOnlyByTheCaretThatFollowsIt) {
    korval::testing::VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    driver.AttachTable(korval::testing::FakeTable());
    EXPECT_TRUE(SendSetting(driver, "C,setI7,rsm"));
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"clear", "send C,setI7,rsm", "wait ^ 10000"}));
    fake.waitResult = 0;
    EXPECT_FALSE(SendSetting(driver, "C,setI67,rsm"));

    // One unanswered setting does not keep the next from going out, nor pass for confirmed.
    fake.calls.clear();
    EXPECT_FALSE(SendSettings(driver, {"setDA20,rsm", "C,setjA1M1,setJA1M10,,rsm"}));
    EXPECT_EQ(fake.calls,
              (std::vector<std::string>{"clear", "send setDA20,rsm", "wait ^ 10000", "clear",
                                        "send C,setjA1M1,setJA1M10,,rsm", "wait ^ 10000"}));
    fake.waitResult = 1;
    EXPECT_TRUE(SendSettings(driver, {"setDA20,rsm", "C,setjA1M1,setJA1M10,,rsm"}));
}
