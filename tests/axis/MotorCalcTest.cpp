// The calculator as the window reads its boxes: the edges of each judgement (the everyday cases
// are korval-cli calc-motor's test). Expected values were worked out by hand from the published
// formulas, at four decimals with halves to even.
#include "axis/ClsKdxMotorCalc.h"

#include <gtest/gtest.h>

using namespace korval;

namespace {

const std::string Contact = "Contact Tavrin Sales for a Motor that may be used";
const std::string Wires = "Motor Cannot be used, Invalid Number of Wires. " + Contact;
const std::string TooLow = "Motor Cannot be used, Current Spec too Low. " + Contact;
const std::string TooHigh = "Motor Cannot be used, Current Spec too High. " + Contact;
std::string invalid(const std::string& v) {
    return "Motor Cannot be used, I*L Product Invalid.(Val=" + v + "), " + Contact;
}
std::string productLow(const std::string& v) {
    return "Motor Cannot be used, I*L Product Spec too Low.(Val=" + v + "), " + Contact;
}
std::string productHigh(const std::string& v) {
    return "Motor Cannot be used, I*L Product Spec too High.(Val=" + v + "), " + Contact;
}
std::string setting(const std::string& v, int s) {
    return "Calculated value = " + v + ", use KDX Motor Setting = " + std::to_string(s);
}
const std::string Unchanged = "(unchanged)";

struct Label final : TextTarget {
    std::string text = Unchanged;
    void SetText(const std::string& t) override { text = t; }
};

struct Case {
    int wires;
    const char* current;
    const char* inductance;
    std::string shown;
};

void check(const std::vector<Case>& cases) {
    for (const auto& c : cases) {
        ClsKdxMotorCalc calc;
        Label label;
        const auto result =
            calc.CalcFromText(static_cast<std::int16_t>(c.wires), c.current, c.inductance, &label);
        EXPECT_EQ(result.value_or(Unchanged), c.shown)
            << c.wires << " wires, " << c.current << " A, " << c.inductance << " mH";
        EXPECT_EQ(label.text, c.shown);
    }
}

} // namespace

TEST(MotorCalc, WiresAreJudgedFirst) {
    check({
        {0, "5", "4", Wires},
        {7, "1", "2", Wires},
        {-6, "1", "2", Wires},
        {8, "1", "2", setting("0.7404", 1)},
    });
}

TEST(MotorCalc, TheProductIsJudgedBeforeTheCurrent) {
    check({
        {6, "0.5", "30", productHigh("15")},
        {6, "0.5", "30.00005", productHigh("15")}, // 30.00005 holds as 30
        {6, "0.5", "30.0002", invalid("15.0001")},
        {6, "-1", "2", invalid("-2")},
        {6, "1", "-2", invalid("-2")},
        {6, "0.5", "1", productLow("0.5")},
        {6, "0.4", "2.4998", productLow("0.9999")},
        {6, "0.4", "2.4999", setting("1", 0)}, // 0.99996 holds as 1
        {6, "0.5", "2", setting("1", 0)},
        {6, "0.7", "20", setting("14", 0)},
        {6, "0.7", "20.0001", productHigh("14.0001")},
        {6, "1e30", "1e30", invalid("1E+60")},
    });
}

TEST(MotorCalc, EachCurrentRangeEndsWhereItSays) {
    check({
        {6, "0", "1", TooLow},
        {6, "0.39", "1", TooLow},
        {6, "0.3901", "1", Unchanged},
        {6, "0.395", "1", Unchanged},
        {6, "0.4", "2.5", setting("1", 0)},
        {6, "0.79", "10", setting("7.9", 0)},
        {6, "0.7901", "10", Unchanged},
        {6, "0.8", "1", setting("0.5091", 1)},
        {6, "0.8", "0.1", setting("0.3639", 0)},
        {6, "2.49", "1", setting("5.1315", 5)},
        {6, "2.4901", "1", Unchanged},
        {6, "2.5", "1", setting("5.0335", 5)},
        {6, "4.7", "1", setting("3.6273", 4)},
        {6, "4.7", "0.5", setting("3.4468", 3)},
        {6, "6", "1", TooHigh},
    });
}

TEST(MotorCalc, ASettingAboveSixIsHeldToSix) {
    check({
        {6, "2.49", "6", setting("6.6637", 6)},
        {6, "4.7", "3", setting("12.5659", 6)},
        {6, "2.5", "6", setting("1576.1251", 6)},
    });
}

TEST(MotorCalc, NegativeAndUnreadableSpecs) {
    check({
        {6, "-0.0001", "0", Unchanged},
        {6, "", "", TooLow},
        {6, "1,5", "2", setting("0.7404", 1)}, // a comma ends the number, as in every box
        {6, "0.8 A", "1 mH", setting("0.5091", 1)},
    });
}

TEST(MotorCalc, TheFieldsHoldTheLastCalculation) {
    ClsKdxMotorCalc calc;
    calc.CalcFromText(8, "0.50004", "2", nullptr);
    EXPECT_EQ(calc.Wires, 8);
    EXPECT_EQ(calc.Current.toText(), "0.5");
    EXPECT_EQ(calc.Inductance.toText(), "2");
    EXPECT_EQ(calc.Value.toText(), "1");
    EXPECT_EQ(calc.NumOfWiresError(), Wires);
}
