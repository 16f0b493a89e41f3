// The motor settings calculator as a user works it: the wires picked, the specs typed, the
// result and the wiring picture shown.
#include "DeviceFixture.h"

#include "axis/ui/FrmKdxToolSetMotorCalc.h"
#include "core/ui/MdiKorval.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace korval;
using namespace korval::test;

namespace {

using MotorCalcWindow = DeviceFixture;

const std::string Contact = "Contact Tavrin Sales for a Motor that may be used";

} // namespace

TEST_F(MotorCalcWindow, TheResultFollowsTheWiresAndTheSpecs) {
    app->mdi->Menu("MnuToolsSetUpMotorCalculator")->trigger();
    auto* w = window<FrmKdxToolSetMotorCalc>("FrmKdxToolSetMotorCalc");
    ASSERT_TRUE(w->IsShown());
    EXPECT_FALSE(w->PicWire()->drawing().has_value()) << "no picture before the wires are picked";
    enum Action { Pick6, Pick8, PickOther, Calculate };
    const struct {
        Action action;
        const char* current;
        const char* inductance;
        std::string shown;
        std::optional<Drawing> picture;
        int wires;
    } steps[] = {
        {Calculate, "1", "2", "Motor Cannot be used, Invalid Number of Wires. " + Contact,
         std::nullopt, 0},
        {Pick6, "1", "2", "", Drawing::Pic6Wire, 6},
        {Calculate, "1", "2", "Calculated value = 0.7404, use KDX Motor Setting = 1",
         Drawing::Pic6Wire, 6},
        {Calculate, "0.395", "2", "Calculated value = 0.7404, use KDX Motor Setting = 1",
         Drawing::Pic6Wire, 6},
        {Pick8, "0.395", "2", "", Drawing::Pic8Wire, 8},
        {Calculate, "4.7001", "1", "Motor Cannot be used, Current Spec too High. " + Contact,
         Drawing::Pic8Wire, 8},
        {Calculate, "5", "4", "Motor Cannot be used, I*L Product Invalid.(Val=20), " + Contact,
         Drawing::Pic8Wire, 8},
        {PickOther, "5", "4", "Motor Cannot be used, Invalid Number of Wires. " + Contact,
         Drawing::PicNo, 0},
        {Pick6, "abc", "", "", Drawing::Pic6Wire, 6},
        {Calculate, "abc", "", "Motor Cannot be used, Current Spec too Low. " + Contact,
         Drawing::Pic6Wire, 6},
    };
    for (const auto& s : steps) {
        w->TxtCurrent()->setText(s.current);
        w->TxtInductance()->setText(s.inductance);
        switch (s.action) {
        case Pick6:
            w->OptNumOfWires6()->click();
            break;
        case Pick8:
            w->OptNumOfWires8()->click();
            break;
        case PickOther:
            w->OptNumOfWires0()->click();
            break;
        case Calculate:
            w->CmdCalcMtrSetting()->click();
            break;
        }
        EXPECT_EQ(w->LblMtrSetting()->text().toStdString(), s.shown) << s.current;
        EXPECT_EQ(w->PicWire()->drawing(), s.picture) << s.current;
        EXPECT_EQ(w->NumOfWires, s.wires) << s.current;
    }
}
