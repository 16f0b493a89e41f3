// Each device window's settings as a user gives them: what goes down the line, and what the
// controller then holds, read back with the diagnostic queries.
#include "DeviceFixture.h"

#include "axis/ui/FrmKdxToolSetJogButtons.h"
#include "axis/ui/FrmKdxToolSetJoystickAnalog.h"
#include "axis/ui/FrmKdxToolSetJoystickDigital.h"
#include "axis/ui/FrmKdxToolSetThumbwheel.h"
#include "diagnostics/ClsKdxDiagnostic.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using namespace korval;
using namespace korval::test;

namespace {

struct DeviceWindows : DeviceFixture {
    FrmKdxToolSetJogButtons* jog(int axis) {
        return window<FrmKdxToolSetJogButtons>("FrmKdxToolSetJogButtons" + std::to_string(axis));
    }
    FrmKdxToolSetJoystickDigital* digital(int axis) {
        return window<FrmKdxToolSetJoystickDigital>("FrmKdxToolSetJoystickDigital" +
                                                    std::to_string(axis));
    }
    FrmKdxToolSetJoystickAnalog* analog(int axis) {
        return window<FrmKdxToolSetJoystickAnalog>("FrmKdxToolSetJoystickAnalog" +
                                                   std::to_string(axis));
    }
    // What the controller holds, as the information panels show it, for each axis.
    std::vector<TextBox> readBack(std::string (ClsKdxDiagnostic::*query)(const AxisTargets&)) {
        ClsKdxDiagnostic diagnostic(app->kdx, app->delay);
        std::vector<TextBox> boxes(4);
        (diagnostic.*query)({&boxes[0], &boxes[1], &boxes[2], &boxes[3]});
        return boxes;
    }
    static std::string speeds(const char* primary, const char* secondary) {
        return std::string("Primary Setting: ") + primary + "\r\nSecondary Setting: " + secondary +
               "\r\n";
    }
};

} // namespace

TEST_F(DeviceWindows, JogButtonAndDigitalJoystickSpeedsAreStoredAsTyped) {
    const struct {
        bool jogWindow; // else the digital joystick's
        int axis;
        const char* primary; // the jog window's velocity
        const char* secondary;
        bool disable;
        const char* sent;     // empty: refused
        const char* shown;    // the primary speed in both windows afterwards
        std::string readBack; // that axis's digital settings afterwards
    } cases[] = {
        {true, 1, "2000", "", false, "C,setj1M2000,setJ1M2000,,rsm", "2000",
         speeds("2000", "2000")},
        {true, 3, "7000", "", false, "C,setj3M6000,setJ3M6000,,rsm", "6000",
         speeds("6000", "6000")},
        {true, 4, "+250 sps", "", false, "C,setj4M250,setJ4M250,,rsm", "250", speeds("250", "250")},
        {false, 4, "3000", "1200", false, "C,setj4M3000,setJ4M1200,,rsm", "3000",
         speeds("3000", "1200")},
        {false, 2, "2000", "2000", false, "C,setj2M2000,setJ2M2000,,rsm", "2000",
         speeds("2000", "2000")},
        {false, 2, "1500", "1501", false, "", "1500", speeds("2000", "2000")},
        {false, 1, "6500", "x", false, "C,setj1M6000,setJ1M0,,rsm", "6000", speeds("6000", "0")},
        {true, 3, "1500", "", true, "C,setj3M0,setJ3M0,,rsm", "1500", speeds("0", "0")},
        {false, 2, "1500", "1501", true, "C,setj2M0,setJ2M0,,rsm", "1500", speeds("0", "0")},
    };
    for (const auto& c : cases) {
        const auto label = std::to_string(c.axis) + (c.jogWindow ? " jog " : " digital ") +
                           c.primary + "/" + c.secondary;
        prompts.asked.clear();
        traffic();
        QCheckBox* disable = nullptr;
        PictureButton* save = nullptr;
        if (c.jogWindow) {
            jog(c.axis)->TxtVelocity()->setText(c.primary);
            disable = jog(c.axis)->ChkDisableJogsJoystick();
            save = jog(c.axis)->PicSave();
        } else {
            digital(c.axis)->TxtSpeedPrimary()->setText(c.primary);
            digital(c.axis)->TxtSpeedSecondary()->setText(c.secondary);
            disable = digital(c.axis)->ChkDisableJogsJoystick();
            save = digital(c.axis)->PicSave();
        }
        if (c.disable) {
            disable->setChecked(true); // the click itself sends
        } else {
            press(save);
        }
        const auto line = traffic();
        if (*c.sent != '\0') {
            EXPECT_NE(line.find(c.sent), std::string::npos) << label << "\n" << line;
            EXPECT_TRUE(prompts.asked.empty()) << label;
        } else {
            EXPECT_EQ(line.find("setj"), std::string::npos) << label << "\n" << line;
            EXPECT_EQ(
                prompts.asked,
                std::vector<std::string>{"Speed Error: Secondary speed can not be higher than "
                                         "primary speed"})
                << label;
        }
        EXPECT_TRUE(save->isEnabled()) << label;
        EXPECT_EQ(jog(c.axis)->TxtVelocity()->text(), c.shown) << label;
        EXPECT_EQ(digital(c.axis)->TxtSpeedPrimary()->text(), c.shown) << label;
        const auto held = readBack(&ClsKdxDiagnostic::GetJoystickDigitalSettings);
        EXPECT_EQ(held[c.axis - 1].text, c.readBack) << label;
        disable->setChecked(false);
    }
}

TEST_F(DeviceWindows, TheDisableBoxesOfOneAxisMirrorEachOther) {
    jog(2)->TxtVelocity()->setText("1800");
    digital(2)->TxtSpeedSecondary()->setText("900");
    jog(2)->ChkDisableJogsJoystick()->setChecked(true);
    EXPECT_TRUE(digital(2)->ChkDisableJogsJoystick()->isChecked());
    EXPECT_FALSE(jog(2)->TxtVelocity()->isEnabled());
    EXPECT_FALSE(digital(2)->TxtSpeedPrimary()->isEnabled());
    EXPECT_FALSE(digital(2)->TxtSpeedSecondary()->isEnabled());
    EXPECT_FALSE(digital(1)->ChkDisableJogsJoystick()->isChecked()) << "another axis";
    EXPECT_TRUE(digital(1)->TxtSpeedPrimary()->isEnabled());
    EXPECT_EQ(readBack(&ClsKdxDiagnostic::GetJoystickDigitalSettings)[1].text, speeds("0", "0"));

    // Unchecking the digital window's box: it sends its own speeds, then the jog window's
    // box follows and sends the jog speed, which both words then hold.
    traffic();
    digital(2)->ChkDisableJogsJoystick()->setChecked(false);
    EXPECT_FALSE(jog(2)->ChkDisableJogsJoystick()->isChecked());
    EXPECT_TRUE(jog(2)->TxtVelocity()->isEnabled());
    EXPECT_TRUE(digital(2)->TxtSpeedSecondary()->isEnabled());
    const auto line = traffic();
    const auto own = line.find("C,setj2M1800,setJ2M900,,rsm");
    const auto mirrored = line.find("C,setj2M1800,setJ2M1800,,rsm");
    ASSERT_NE(own, std::string::npos) << line;
    ASSERT_NE(mirrored, std::string::npos) << line;
    EXPECT_LT(own, mirrored);
    EXPECT_EQ(readBack(&ClsKdxDiagnostic::GetJoystickDigitalSettings)[1].text,
              speeds("1800", "1800"));
}

TEST_F(DeviceWindows, AnalogJoystickRowsAndDeadBandAreStored) {
    const struct {
        int axis;
        int primary; // rows picked
        int secondary;
        const char* deadBand;
        const char* deadBandSent; // sent first
        const char* speedsSent;
        const char* deadBandShown;
        int secondaryShown;
        const char* deadBandHeld;
        const char* primaryHeld; // as the panel words the setting
        const char* secondaryHeld;
    } cases[] = {
        {2, 4, 12, "7", "setDA20,rsm", "C,setjA2M4,setJA2M12,,rsm", "20", 12, "20",
         " 4 = 4 to 1000 sps", " 12 = 12 to 3000 sps"},
        {3, 0, 12, "abc", "setDA20,rsm", "C,setjA3M0,setJA3M0,,rsm", "20", 12, "20",
         " 0 = Disabled", " 0 = Disabled"},
        {1, 24, 0, "64x", "setDA64,rsm", "C,setjA1M24,setJA1M1,,rsm", "64x", 1, "64",
         " 24 = 24 to 6000 sps", " 1 = 1 to 250 sps"},
        {4, 1, 10, "250", "setDA100,rsm", "C,setjA4M1,setJA4M10,,rsm", "100", 10, "100",
         " 1 = 1 to 250 sps", " 10 = 10 to 2500 sps"},
    };
    for (const auto& c : cases) {
        auto* w = analog(c.axis);
        w->CmbSpeedPrimary()->setCurrentIndex(c.primary);
        w->CmbSpeedSecondary()->setCurrentIndex(c.secondary);
        w->TxtAnalogDeadBand()->setText(c.deadBand);
        traffic();
        press(w->PicSave());
        const auto line = traffic();
        const auto deadBandAt = line.find(c.deadBandSent);
        EXPECT_NE(deadBandAt, std::string::npos) << line;
        EXPECT_NE(line.find(c.speedsSent, deadBandAt), std::string::npos) << line;
        EXPECT_EQ(w->TxtAnalogDeadBand()->text(), c.deadBandShown);
        EXPECT_EQ(w->CmbSpeedSecondary()->currentIndex(), c.secondaryShown);
        EXPECT_EQ(w->LblConfirmation()->text(), "Stored in the KDX");
        const auto axis = std::to_string(c.axis);
        EXPECT_EQ(readBack(&ClsKdxDiagnostic::GetJoystickAnalogSettings)[c.axis - 1].text,
                  "Primary Axis " + axis + " Setting: " + c.primaryHeld + "\r\nSecondary Axis " +
                      axis + " Setting: " + c.secondaryHeld + "\r\n");
        ClsKdxDiagnostic diagnostic(app->kdx, app->delay);
        EXPECT_EQ(diagnostic.GetDeadBand(), std::string("Deadband: ") + c.deadBandHeld + "\r\n");
    }
}

TEST_F(DeviceWindows, TheThumbwheelBoxSwitchesProgramSelection) {
    auto* box = window<FrmKdxToolSetThumbwheel>("FrmKdxToolSetThumbwheel")->ChkUseThumbwheel();
    const std::string line = "Program # Select via Inputs 2 and 3 (Thumbwheel switch): ";
    for (const bool use : {true, false}) {
        traffic();
        box->setChecked(use);
        EXPECT_NE(traffic().find(use ? "C,setI67,rsm" : "C,setI7,rsm"), std::string::npos);
        ClsKdxDiagnostic diagnostic(app->kdx, app->delay);
        EXPECT_NE(diagnostic.GetMultifunctionUserInputs().find(line + (use ? "True" : "False")),
                  std::string::npos);
    }
}

TEST_F(DeviceWindows, ASettingTheControllerDoesNotConfirmIsShownAsSuch) {
    auto* w = jog(1);
    w->TxtVelocity()->setText("1200");
    setSilent(true);
    press(w->PicSave());
    EXPECT_EQ(w->LblConfirmation()->text(), "Not confirmed: the KDX did not answer");
    EXPECT_TRUE(w->PicSave()->isEnabled()) << "the window is usable again";
    EXPECT_FALSE(w->PicSave()->picture().down);
    setSilent(false);
    app->delay.TimeDelay(1.5); // the driver finds the controller again
    press(w->PicSave());
    EXPECT_EQ(w->LblConfirmation()->text(), "Stored in the KDX");
}

TEST_F(DeviceWindows, AxisListsTakeArrowsButNoTypedText) {
    auto* list = jog(1)->CmbAxis();
    auto* speed = analog(1)->CmbSpeedPrimary();
    key(list, Qt::Key_3, "3");
    key(speed, Qt::Key_2, "2");
    EXPECT_EQ(list->currentIndex(), 0);
    EXPECT_EQ(speed->currentIndex(), 1);
    key(list, Qt::Key_Down);
    EXPECT_EQ(list->currentIndex(), 1);
    EXPECT_EQ(jog(1)->AxisNumber, 2) << "the list sets the axis the window sends for";
    jog(1)->TxtVelocity()->setText("900");
    traffic();
    press(jog(1)->PicSave());
    EXPECT_NE(traffic().find("C,setj2M900,setJ2M900,,rsm"), std::string::npos);
    EXPECT_EQ(digital(2)->TxtSpeedPrimary()->text(), "900") << "the window of the axis sent for";
}
