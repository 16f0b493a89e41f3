#pragma once
// The program's record of one axis: its motor and limit switches, the settings the controller
// held before a test, and the advance per step in the user's units. It also holds the two text
// cleaners every tool applies to a position or a velocity before it goes to the controller.
#include "core/TextTarget.h"

#include "core/Currency.h"
#include "core/Event.h"
#include "link/ClsDriverKdx.h"

#include <cstdint>
#include <string>

namespace korval {

class ClsKdxAxis {
public:
    static constexpr double PositionLimit = 16777215; // the position register, both signs
    static constexpr double VelocityLimit = 6000;     // steps per second

    explicit ClsKdxAxis(ClsDriverKdx& driver) : driver_(driver) {}
    ClsKdxAxis(const ClsKdxAxis&) = delete;
    ClsKdxAxis& operator=(const ClsKdxAxis&) = delete;

    // Raised after every field is up to date, with the new text.
    Event<const std::string&> AdvStepChanged;
    Event<const std::string&> UnitsChanged;

    void SetMotorModel(const std::string& model) { MotorModel_ = model; }
    std::string GetMotorModel() const { return MotorModel_; }
    // Keeps the setting's text, then writes it to the controller; the driver's result is passed
    // on untested, and the field keeps the new value even when the write failed.
    std::int32_t SetMotorSetting(std::int32_t axis, std::int32_t setting);
    std::string GetMotorSetting() const { return MotorSetting_; }
    void SetLimitModel(const std::string& model) { LimitModel_ = model; }
    std::string GetLimitModel() const { return LimitModel_; }
    std::int32_t SetLimitSetting(std::int32_t axis, std::int32_t setting);
    std::string GetLimitSetting() const { return LimitSetting_; }

    // The value as the type holds it (four decimals) becomes AdvStep; the old one is kept.
    void SetAdvStep(Currency& value);
    std::string GetAdvStep() const { return AdvStep_; }
    std::string GetOldAdvStep() const { return OldAdvStep_; }
    void SetAdvStepUnits(const std::string& units);
    std::string GetAdvStepUnits() const { return AdvStepUnits_; }

    // Read the controller's setting and keep it for the restore; the restore writes the kept
    // value (0 when nothing was read) and leaves MotorSetting and LimitSetting alone.
    std::string GetPrevMotorSetting(std::int32_t axis);
    std::int32_t RestorePrevMotorSetting(std::int32_t axis);
    std::string GetPrevLimitSetting(std::int32_t axis);
    std::int32_t RestorePrevLimitSetting(std::int32_t axis);

    // Clean typed or received text in place: line ends and every "+" go, the leading number is
    // kept in its shortest form and held to -16777215..16777215 (0..6000 for a velocity).
    // Text without a number gives "0". The result also goes to `control` when one is given.
    static std::string FormatPosition(std::string& text, TextTarget* control = nullptr);
    static std::string FormatVelocity(std::string& text, TextTarget* control = nullptr);

private:
    ClsDriverKdx& driver_;
    std::string MotorModel_;
    std::string MotorSetting_;
    std::string LimitModel_;
    std::string LimitSetting_;
    std::string OldAdvStep_;
    std::string AdvStep_;
    std::string AdvStepUnits_;
    std::string PrevMotorSetting_;
    std::string PrevLimitSetting_;
};

} // namespace korval
