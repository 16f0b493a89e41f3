// The motor settings calculator as a user works it: the wires picked, the specs typed, the
// result and the wiring picture shown.
#include "DeviceFixture.h"

#include "axis/ui/FrmKdxToolSetMotorCalc.h"
#include "core/ui/MdiKorval.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>

using namespace korval;
using namespace korval::test;

namespace {

using MotorCalcWindow = DeviceFixture;

const std::string Contact = "Contact Tavrin Sales for a Motor that may be used";
const std::string Wires = "Motor Cannot be used, Invalid Number of Wires. " + Contact;

} // namespace

TEST_F(MotorCalcWindow, TheResultFollowsTheWiresAndTheSpecs) {
    app->mdi->Menu("MnuToolsSetUpMotorCalculator")->trigger();
    auto* w = window<FrmKdxToolSetMotorCalc>("FrmKdxToolSetMotorCalc");
    ASSERT_TRUE(w->IsShown());
    EXPECT_FALSE(w->PicWire()->drawing().has_value()) << "no picture before the wires are picked";
    const struct {
        const char* current;
        const char* inductance;
        const char* clicked;
        std::string shown;
        std::optional<Drawing> picture;
        int wires;
    } steps[] = {
        {"1", "2", "CmdCalcMtrSetting", Wires, std::nullopt, 0},
        {"1", "2", "OptNumOfWires6", "", Drawing::Pic6Wire, 6},
        {"1", "2", "CmdCalcMtrSetting", "Calculated value = 0.7404, use KDX Motor Setting = 1",
         Drawing::Pic6Wire, 6},
        {"0.395", "2", "CmdCalcMtrSetting", "Calculated value = 0.7404, use KDX Motor Setting = 1",
         Drawing::Pic6Wire, 6},
        {"0.395", "2", "OptNumOfWires8", "", Drawing::Pic8Wire, 8},
        {"5", "4", "CmdCalcMtrSetting",
         "Motor Cannot be used, I*L Product Invalid.(Val=20), " + Contact, Drawing::Pic8Wire, 8},
        {"5", "4", "OptNumOfWires0", Wires, Drawing::PicNo, 0},
        {"abc", "", "OptNumOfWires6", "", Drawing::Pic6Wire, 6},
        {"abc", "", "CmdCalcMtrSetting", "Motor Cannot be used, Current Spec too Low. " + Contact,
         Drawing::Pic6Wire, 6},
    };
    for (const auto& s : steps) {
        w->TxtCurrent()->setText(s.current);
        w->TxtInductance()->setText(s.inductance);
        w->findChild<QAbstractButton*>(s.clicked)->click();
        EXPECT_EQ(w->LblMtrSetting()->text().toStdString(), s.shown) << s.clicked << s.current;
        EXPECT_EQ(w->PicWire()->drawing(), s.picture) << s.clicked << s.current;
        EXPECT_EQ(w->NumOfWires, s.wires) << s.clicked << s.current;
    }
}
