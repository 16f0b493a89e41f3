// The device chooser of each axis, reached from its menu: the boxes it clears, the windows it
// shows, and what of it is kept between runs.
#include "DeviceFixture.h"

#include "axis/ui/FrmKdxToolSetAttached.h"
#include "axis/ui/FrmKdxToolSetJogButtons.h"
#include "axis/ui/FrmKdxToolSetJoystickDigital.h"
#include "axis/ui/FrmKdxToolSetThumbwheel.h"
#include "core/ClsIniFile.h"
#include "core/ui/MdiKorval.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using namespace korval;
using namespace korval::test;

namespace {

using D = AttachedDevice;

struct AttachedChooser : DeviceFixture {
    FrmKdxToolSetAttached* open(int axis) {
        app->mdi->Menu(QString("MnuToolsSetUpAttachedAxis%1").arg(axis))->trigger();
        return window<FrmKdxToolSetAttached>("FrmKdxToolSetAttachment" + std::to_string(axis));
    }
    // The device windows shown, by the letters of their devices: J jog buttons, D digital
    // joystick, A analog joystick (each with its axis), T thumbwheel.
    std::string shown() const {
        std::string out;
        for (int axis = 1; axis <= 4; ++axis) {
            for (const auto& [name, letter] : {std::pair{"FrmKdxToolSetJogButtons", 'J'},
                                               {"FrmKdxToolSetJoystickDigital", 'D'},
                                               {"FrmKdxToolSetJoystickAnalog", 'A'}}) {
                if (app->IsVisible(name + std::to_string(axis))) {
                    out += letter + std::to_string(axis);
                }
            }
        }
        return out + (app->IsVisible("FrmKdxToolSetThumbwheel") ? "T" : "");
    }
};

} // namespace

TEST_F(AttachedChooser, EachBoxShowsItsDeviceWindowAndClearsWhatItExcludes) {
    auto* one = open(1);
    one->Box(D::JogSpeeds)->setChecked(true);
    auto* chooser = open(3);
    EXPECT_TRUE(chooser->IsShown());
    EXPECT_EQ(chooser->CmbAxis()->currentIndex(), 2);
    EXPECT_FALSE(chooser->Box(D::AnalogInput)->isEnabled());
    const struct {
        D box;
        bool check;
        const char* windows;
    } clicks[] = {
        {D::JogSpeeds, true, "J1J3"},         {D::JoystickAnalog, true, "J1J3A3"},
        {D::JoystickDigital, true, "J1D3A3"}, {D::JogSpeeds, true, "J1J3A3"},
        {D::Thumbwheel, true, "J1T"},         {D::JoystickAnalog, true, "J1A3"},
        {D::JoystickAnalog, false, "J1"},
    };
    for (const auto& c : clicks) {
        chooser->Box(c.box)->setChecked(c.check);
        EXPECT_EQ(shown(), c.windows);
        for (const auto device :
             {D::Thumbwheel, D::JoystickAnalog, D::JoystickDigital, D::JogSpeeds}) {
            const bool windowShown =
                app->IsVisible(DeviceWindowName(device, device == D::Thumbwheel ? 0 : 3));
            EXPECT_EQ(chooser->Box(device)->isChecked(), windowShown) << c.windows;
        }
    }
}

TEST_F(AttachedChooser, TheBoxesAreNotKeptButTheDeviceSettingsAre) {
    auto* chooser = open(2);
    chooser->Box(D::JogSpeeds)->setChecked(true);
    chooser->Box(D::JoystickAnalog)->setChecked(true);
    auto* jog = window<FrmKdxToolSetJogButtons>("FrmKdxToolSetJogButtons2");
    auto* digital = window<FrmKdxToolSetJoystickDigital>("FrmKdxToolSetJoystickDigital2");
    jog->TxtVelocity()->setText("1700");
    jog->ChkDisableJogsJoystick()->setChecked(true);
    digital->TxtSpeedPrimary()->setText("2500");
    window<FrmKdxToolSetThumbwheel>("FrmKdxToolSetThumbwheel")
        ->ChkUseThumbwheel()
        ->setChecked(true);
    stop();
    ClsIniFile ini;
    const auto item = [&](const std::string& section, const std::string& key) {
        return ini.ProfileGetItem(section, key, "?", settingsFile());
    };
    EXPECT_EQ(item("FrmKdxToolSetAttachment2", "ChkJogSpeeds.Value"), "0");
    EXPECT_EQ(item("FrmKdxToolSetAttachment2", "ChkJoystickAnalog.Value"), "0");
    EXPECT_EQ(item("FrmKdxToolSetAttachment2", "CmbAxis.ListIndex"), "1");
    EXPECT_EQ(item("FrmKdxToolSetJogButtons2", "TxtVelocity.Text"), "1700");

    // The boxes come back as they were, and nothing is sent for them: the controller holds what
    // it was last sent, and may be another one than in the last run.
    ASSERT_TRUE(start());
    jog = window<FrmKdxToolSetJogButtons>("FrmKdxToolSetJogButtons2");
    digital = window<FrmKdxToolSetJoystickDigital>("FrmKdxToolSetJoystickDigital2");
    EXPECT_EQ(jog->TxtVelocity()->text(), "1700");
    EXPECT_EQ(digital->TxtSpeedPrimary()->text(), "2500");
    EXPECT_TRUE(digital->ChkDisableJogsJoystick()->isChecked());
    EXPECT_FALSE(jog->TxtVelocity()->isEnabled());
    EXPECT_FALSE(digital->TxtSpeedPrimary()->isEnabled());
    auto* thumbwheel = window<FrmKdxToolSetThumbwheel>("FrmKdxToolSetThumbwheel");
    EXPECT_TRUE(thumbwheel->ChkUseThumbwheel()->isChecked());
    for (const QLabel* said : {static_cast<QLabel*>(jog->LblConfirmation()),
                               static_cast<QLabel*>(digital->LblConfirmation()),
                               static_cast<QLabel*>(thumbwheel->LblConfirmation())}) {
        EXPECT_EQ(said->text(), "");
    }
    EXPECT_EQ(shown(), "");
}

TEST_F(AttachedChooser, EveryCopyIsLoadedInOrderUnderItsOwnName) {
    std::vector<std::size_t> places;
    for (const char* name :
         {"FrmKdxToolSetMotorCalc", "FrmKdxToolSetAttachment1", "FrmKdxToolSetAttachment4",
          "FrmKdxToolSetJogButtons1", "FrmKdxToolSetJogButtons4", "FrmKdxToolSetJoystickAnalog1",
          "FrmKdxToolSetJoystickAnalog4", "FrmKdxToolSetJoystickDigital1",
          "FrmKdxToolSetJoystickDigital4", "FrmKdxToolSetThumbwheel"}) {
        const auto at = std::find(app->forms.begin(), app->forms.end(), app->FindForm(name));
        ASSERT_NE(at, app->forms.end()) << name;
        places.push_back(static_cast<std::size_t>(at - app->forms.begin()));
    }
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
    EXPECT_EQ(app->FindForm("FrmKdxToolSetJoystickDigital3")->windowTitle(),
              "Set Digital Joystick - Axis 3");
    EXPECT_EQ(app->FindForm("FrmKdxToolSetAttachment2")->windowTitle(),
              "Set Attached Devices - Axis 2");
}
