#include "ClsKdxAxis.h"

#include "core/Numbers.h"

namespace korval {

namespace {

std::int32_t settingValue(const std::string& text) {
    return ToInt32(Val(text)).value_or(0);
}

std::string clean(std::string& text, double low, double high, TextTarget* control) {
    std::string kept;
    kept.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            // CR LF becomes CR, and every CR goes: the pair leaves nothing, a lone LF stays.
            i += i + 1 < text.size() && text[i + 1] == '\n' ? 1 : 0;
        } else if (text[i] != '+') {
            kept += text[i];
        }
    }
    const double v = Val(kept);
    text = v < low ? NumToText(low) : v > high ? NumToText(high) : NumToText(v);
    if (control != nullptr) {
        control->SetText(text);
    }
    return text;
}

} // namespace

std::int32_t ClsKdxAxis::SetMotorSetting(std::int32_t axis, std::int32_t setting) {
    MotorSetting_ = std::to_string(setting);
    return driver_.SetMotorSetting(axis, setting);
}

std::int32_t ClsKdxAxis::SetLimitSetting(std::int32_t axis, std::int32_t setting) {
    LimitSetting_ = std::to_string(setting);
    return driver_.SetLimitSetting(axis, setting);
}

void ClsKdxAxis::SetAdvStep(Currency& value) {
    OldAdvStep_ = AdvStep_;
    AdvStep_ = value.toText();
    AdvStepChanged.raise(AdvStep_);
}

void ClsKdxAxis::SetAdvStepUnits(const std::string& units) {
    AdvStepUnits_ = units;
    UnitsChanged.raise(AdvStepUnits_);
}

std::string ClsKdxAxis::GetPrevMotorSetting(std::int32_t axis) {
    PrevMotorSetting_ = std::to_string(driver_.GetMotorSetting(axis));
    return PrevMotorSetting_;
}

std::int32_t ClsKdxAxis::RestorePrevMotorSetting(std::int32_t axis) {
    return driver_.SetMotorSetting(axis, settingValue(PrevMotorSetting_));
}

std::string ClsKdxAxis::GetPrevLimitSetting(std::int32_t axis) {
    PrevLimitSetting_ = std::to_string(driver_.GetLimitSetting(axis));
    return PrevLimitSetting_;
}

std::int32_t ClsKdxAxis::RestorePrevLimitSetting(std::int32_t axis) {
    return driver_.SetLimitSetting(axis, settingValue(PrevLimitSetting_));
}

std::string ClsKdxAxis::FormatPosition(std::string& text, TextTarget* control) {
    return clean(text, -PositionLimit, PositionLimit, control);
}

std::string ClsKdxAxis::FormatVelocity(std::string& text, TextTarget* control) {
    return clean(text, 0, VelocityLimit, control);
}

} // namespace korval
