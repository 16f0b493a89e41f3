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

TEST(AttachedChoice, EachDeviceWindowIsNamedForItsAxis) {
    const struct {
        D device;
        int axis;
        const char* name;
    } cases[] = {
        {D::JogSpeeds, 1, "FrmKdxToolSetJogButtons1"},
        {D::JoystickDigital, 4, "FrmKdxToolSetJoystickDigital4"},
        {D::JoystickAnalog, 2, "FrmKdxToolSetJoystickAnalog2"},
        {D::Thumbwheel, 3, "FrmKdxToolSetThumbwheel"},
        {D::AnalogInput, 1, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DeviceWindowName(c.device, c.axis), c.name);
    }
}

TEST(DeviceSettings, JogButtonsSendTheCleanedVelocityTwice) {
    const struct {
        int axis;
        const char* typed;
        bool disabled;
        const char* sent;
        const char* shown;
    } cases[] = {
        {1, "2000", false, "C,setj1M2000,setJ1M2000,,rsm", "2000"},
        {2, "7000", false, "C,setj2M6000,setJ2M6000,,rsm", "6000"},
        {3, "-5", false, "C,setj3M0,setJ3M0,,rsm", "0"},
        {4, "+250abc", false, "C,setj4M250,setJ4M250,,rsm", "250"},
        {1, "", false, "C,setj1M0,setJ1M0,,rsm", "0"},
        {1, "2000", true, "C,setj1M0,setJ1M0,,rsm", "2000"},
        {4, "9999", true, "C,setj4M0,setJ4M0,,rsm", "6000"},
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        EXPECT_EQ(JogButtonsSetting(c.axis, text, c.disabled), c.sent) << c.typed;
        EXPECT_EQ(text, c.shown);
    }
}

TEST(DeviceSettings, DigitalJoystickRefusesASecondarySpeedAboveThePrimary) {
    const struct {
        int axis;
        const char* primary;
        const char* secondary;
        bool disabled;
        const char* sent; // empty: refused
    } cases[] = {
        {1, "2000", "2000", false, "C,setj1M2000,setJ1M2000,,rsm"},
        {1, "2000", "2001", false, ""},
        {2, "2000", "2001", true, "C,setj2M0,setJ2M0,,rsm"},
        {3, "7000", "6500", false, "C,setj3M6000,setJ3M6000,,rsm"},
        {4, "1000", "-3", false, "C,setj4M1000,setJ4M0,,rsm"},
        {2, "1,500", "900", false, ""},
        {3, "3000", "1500", false, "C,setj3M3000,setJ3M1500,,rsm"},
    };
    for (const auto& c : cases) {
        std::string primary = c.primary;
        std::string secondary = c.secondary;
        EXPECT_EQ(DigitalJoystickSetting(c.axis, primary, secondary, c.disabled).value_or(""),
                  c.sent)
            << c.primary << " " << c.secondary;
    }
    std::string primary = "6500";
    std::string secondary = "x";
    DigitalJoystickSetting(1, primary, secondary, false);
    EXPECT_EQ(primary + "/" + secondary, "6000/0") << "both boxes are cleaned";
}

TEST(DeviceSettings, AnalogJoystickRowsAreTheValuesSent) {
    const auto rows = AnalogSpeedRows();
    ASSERT_EQ(rows.size(), 25u);
    EXPECT_EQ(rows[0], "Disable Joystick");
    EXPECT_EQ(rows[1], "1-250 Steps per Second");
    EXPECT_EQ(rows[AnalogSecondaryStartRow], "10-2500 Steps per Second");
    EXPECT_EQ(rows[24], "24-6000 Steps per Second");
    EXPECT_EQ(AnalogJoystickSetting(1, 0, 10), "C,setjA1M0,setJA1M0,,rsm");
    EXPECT_EQ(AnalogJoystickSetting(2, 1, 10), "C,setjA2M1,setJA2M10,,rsm");
    EXPECT_EQ(AnalogJoystickSetting(4, 24, 24), "C,setjA4M24,setJA4M24,,rsm");
    EXPECT_EQ(AnalogJoystickSetting(3, -1, 5), "C,setjA3M0,setJA3M0,,rsm") << "no row selected";
    EXPECT_EQ(SecondarySpeedRow(0), 1);
    EXPECT_EQ(SecondarySpeedRow(-1), 1);
    EXPECT_EQ(SecondarySpeedRow(7), 7);
    std::string deadBand = "150";
    EXPECT_EQ(AnalogJoystickSettings(2, deadBand, 3, 9),
              (std::vector<std::string>{"setDA100,rsm", "C,setjA2M3,setJA2M9,,rsm"}))
        << "the dead band goes first";
    EXPECT_EQ(deadBand, "100");
}

TEST(DeviceSettings, TheDeadBandIsHeldTo20To100InTheBox) {
    const struct {
        const char* typed;
        const char* shown;
        const char* sent;
    } cases[] = {
        {"abc", "20", "setDA20,rsm"},     {"19.9", "20", "setDA20,rsm"},
        {"-5", "20", "setDA20,rsm"},      {"20", "20", "setDA20,rsm"},
        {"55x", "55x", "setDA55,rsm"},    {"100", "100", "setDA100,rsm"},
        {"100.5", "100", "setDA100,rsm"},
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        EXPECT_EQ(DeadBandSetting(text), c.sent) << c.typed;
        EXPECT_EQ(text, c.shown);
    }
}

TEST(DeviceSettings, TheThumbwheelSwitchesTheMultiFunctionWord) {
    EXPECT_EQ(ThumbwheelSetting(true), "C,setI67,rsm");
    EXPECT_EQ(ThumbwheelSetting(false), "C,setI7,rsm");
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
