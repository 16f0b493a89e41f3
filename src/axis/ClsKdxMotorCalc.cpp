#include "ClsKdxMotorCalc.h"

#include "FixedPointText.h"

#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace korval {

namespace {

constexpr const char* Contact = "Contact Tavrin Sales for a Motor that may be used";

std::string cannot(const std::string& reason) {
    return "Motor Cannot be used, " + reason + ". " + Contact;
}

std::string productMessage(const std::string& reason, const std::string& value) {
    return "Motor Cannot be used, I*L Product " + reason + ".(Val=" + value + "), " + Contact;
}

constexpr Currency hundredths(std::int64_t n) {
    return Currency::fromUnits(n * Currency::Scale / 100);
}

// The product as the fixed-point type keeps it, halves to even; null past the type's range.
std::optional<Currency> product(Currency a, Currency b) {
    std::int64_t p = 0;
    if (__builtin_mul_overflow(a.units(), b.units(), &p)) {
        return std::nullopt;
    }
    std::int64_t q = p / Currency::Scale;
    const std::int64_t twiceRest = 2 * std::abs(p % Currency::Scale);
    if (twiceRest > Currency::Scale || (twiceRest == Currency::Scale && q % 2 != 0)) {
        q += p < 0 ? -1 : 1;
    }
    return Currency::fromUnits(q);
}

} // namespace

std::string ClsKdxMotorCalc::NumOfWiresError(TextTarget* label) {
    const auto text = cannot("Invalid Number of Wires");
    if (label != nullptr) {
        label->SetText(text);
    }
    return text;
}

std::string ClsKdxMotorCalc::CurrentTooLowError() {
    return cannot("Current Spec too Low");
}
std::string ClsKdxMotorCalc::CurrentTooHighError() {
    return cannot("Current Spec too High");
}
std::string ClsKdxMotorCalc::ProductInvalidError(double typedProduct) {
    return productMessage("Invalid", NumToText(typedProduct));
}
std::string ClsKdxMotorCalc::ProductTooLowError() const {
    return productMessage("Spec too Low", Value.toText());
}
std::string ClsKdxMotorCalc::ProductTooHighError() const {
    return productMessage("Spec too High", Value.toText());
}

double ClsKdxMotorCalc::PowerSetting(double i, double l) {
    return 0.170529300239501 * std::pow(3.92422428519599, i) * std::pow(l, 0.14582331222117);
}

double ClsKdxMotorCalc::PolynomialSetting(double i, double l) {
    return 1.28594891439669 * i * i - 9.89804768379444 * i + 32.443044187681 -
           42.5654612410779 * l + 53.4500945841306 * l * l - 25.803045648793 * l * l * l +
           4.21684971733554 * l * l * l * l;
}

std::string ClsKdxMotorCalc::productRule() {
    if (Value < hundredths(100)) {
        return ProductTooLowError();
    }
    if (Value > hundredths(1400)) {
        return ProductTooHighError();
    }
    return "Calculated value = " + Value.toText() + ", use KDX Motor Setting = 0";
}

std::string ClsKdxMotorCalc::roundingRule() {
    const double r = Round(Value.toDouble());
    if (r < 0) {
        return ProductTooLowError();
    }
    return "Calculated value = " + Value.toText() +
           ", use KDX Motor Setting = " + NumToText(std::min(r, 6.0));
}

std::optional<std::string> ClsKdxMotorCalc::CalcMotorSetting(std::int16_t wires, Currency current,
                                                             Currency inductance, TextTarget* label,
                                                             std::optional<Typed> typed) {
    Wires = wires;
    Current = current;
    Inductance = inductance;
    if (wires != 6 && wires != 8) {
        return NumOfWiresError(label);
    }
    const auto given = typed.value_or(Typed{current.toDouble(), inductance.toDouble()});
    const double i = current.toDouble();
    const double l = inductance.toDouble();
    std::optional<std::string> result;
    const auto p = product(current, inductance);
    if (!p || *p < Currency{} || *p > hundredths(1500)) {
        result = ProductInvalidError(given.inductance * given.current);
    } else if (current >= Currency{} && current <= hundredths(39)) {
        result = CurrentTooLowError();
    } else if (current >= hundredths(40) && current <= hundredths(79)) {
        Value = *p;
        result = productRule();
    } else if (current >= hundredths(80) && current <= hundredths(249)) {
        Value = ToFixedPoint(PowerSetting(i, l));
        result = roundingRule();
    } else if (current >= hundredths(250) && current <= hundredths(470)) {
        Value = ToFixedPoint(PolynomialSetting(i, l));
        result = roundingRule();
    } else if (current > hundredths(470)) {
        result = CurrentTooHighError();
    }
    if (result && label != nullptr) {
        label->SetText(*result);
    }
    return result;
}

std::optional<std::string> ClsKdxMotorCalc::CalcFromText(std::int16_t wires,
                                                         std::string_view currentText,
                                                         std::string_view inductanceText,
                                                         TextTarget* label) {
    const Typed typed{Val(currentText), Val(inductanceText)};
    return CalcMotorSetting(wires, ToFixedPoint(typed.current), ToFixedPoint(typed.inductance),
                            label, typed);
}

} // namespace korval
