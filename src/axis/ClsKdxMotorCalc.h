#pragma once
// The motor settings calculator: from a motor's wires, rated current and inductance, whether
// the controller can drive it and with which motor setting, or why it can't. Advice only:
// nothing here reaches the controller.
#include "core/TextTarget.h"

#include "core/Currency.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korval {

class ClsKdxMotorCalc {
public:
    Currency Current;    // amperes
    Currency Inductance; // millihenry
    Currency Value;      // the calculated value or the product
    std::int16_t Wires = 0;

    // The numbers as typed in the two boxes, before they were held to four decimals.
    struct Typed {
        double current = 0;
        double inductance = 0;
    };

    // The result text, also put on `label` when one is given; null where the current falls
    // between two ranges (or below 0): the label keeps what it shows. Wires come first, then
    // the product, then the current ranges.
    std::optional<std::string> CalcMotorSetting(std::int16_t wires, Currency current,
                                                Currency inductance, TextTarget* label = nullptr,
                                                std::optional<Typed> typed = std::nullopt);
    std::string NumOfWiresError(TextTarget* label = nullptr);

    // "Calculate Motor Setting" with these box texts, read leniently ("abc" is 0) and then held
    // to four decimals.
    std::optional<std::string> CalcFromText(std::int16_t wires, std::string_view currentText,
                                            std::string_view inductanceText,
                                            TextTarget* label = nullptr);

private:
    std::string productRule();
    std::string roundingRule();
    static double PowerSetting(double current, double inductance);
    static double PolynomialSetting(double current, double inductance);
    static std::string CurrentTooLowError();
    static std::string CurrentTooHighError();
    static std::string ProductInvalidError(double product);
    std::string ProductTooLowError() const;
    std::string ProductTooHighError() const;
};

} // namespace korval
