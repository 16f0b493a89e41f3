#include "MotorTest.h"

#include "LimitList.h"

#include "core/Numbers.h"

namespace korval {

namespace {

constexpr const char* TestTitle = "Axis Settings Test";
constexpr const char* NoAnswerStatus = "ERRORCOMMUNICATIONS";

int settingValue(const std::string& text) {
    return ToInt32(Val(text)).value_or(-1);
}

} // namespace

MotorTest::MotorTest(ClsDriverKdx& driver, ClsTimeDelay& delay, Prompts& prompts,
                     std::function<bool()> stopRequested)
    : driver_(driver), delay_(delay), prompts_(prompts), stopRequested_(std::move(stopRequested)) {}

std::string MotorTest::MoveCommand(int axis, int steps) {
    const auto a = std::to_string(axis);
    return "C,S" + a + "M" + std::to_string(Speed) + ",,I" + a + "M" + std::to_string(steps);
}

bool MotorTest::stopped() const {
    return stopRequested_ && stopRequested_();
}

bool MotorTest::ask(const std::string& question, const std::string& title) {
    return prompts_.Message(question, title, Prompts::Icon::Question, Prompts::Buttons::YesNo) ==
           Prompts::Answer::Yes;
}

bool MotorTest::move(int axis, int steps, MotorTestView& view) {
    driver_.SendCommandsToPort(MoveCommand(axis, steps));
    // The move's time plus a second, in whole seconds.
    const auto limit = ToInt32(static_cast<double>(Steps) / Speed + 1).value_or(1);
    driver_.RunKdxProgramAndWaitForFinish(limit); // ends with a fresh status word
    if (driver_.LastStatus == NoAnswerStatus) {
        return false;
    }
    auto position = driver_.GetCurrentMotorPosition(axis);
    view.ShowPosition(ClsKdxAxis::FormatPosition(position));
    return !stopped();
}

MotorTestResult MotorTest::Run(ClsKdxAxis& record, int axis, MotorMake make, int motorRow,
                               int limitSetting, MotorTestView& view) {
    MotorTestResult result;
    if (IsBlankMotorRow(make, motorRow) || limitSetting < LimitSettingLowest ||
        limitSetting > LimitSettingHighest) {
        prompts_.Message("Only a motor and a limit type from the lists can be tested and kept.",
                         TestTitle, Prompts::Icon::Information, Prompts::Buttons::Ok);
        return result;
    }
    view.ShowPleaseWait(true);
    view.SetHourglass(true);
    result.prevMotorSetting = settingValue(record.GetPrevMotorSetting(axis));
    result.prevLimitSetting = settingValue(record.GetPrevLimitSetting(axis));
    if (result.prevMotorSetting < 0) { // no motor setting is negative: the read had no answer
        view.ShowPleaseWait(false);
        view.SetHourglass(false);
        prompts_.Message("The controller did not answer, so nothing was changed.", TestTitle,
                         Prompts::Icon::Information, Prompts::Buttons::Ok);
        return result;
    }
    // A write the controller did not confirm means it has fallen silent: restore at once.
    const bool written = record.SetMotorSetting(axis, motorRow) == 1 &&
                         record.SetLimitSetting(axis, limitSetting) == 1 && !stopped();
    const bool moved = written && move(axis, Steps, view) && move(axis, -Steps, view);
    view.ShowPleaseWait(false);
    view.SetHourglass(false);
    if (moved && ask("Did the motor appear to move properly?", TestTitle) &&
        ask("Do you want to keep these settings?", "Save Axis Settings")) {
        result.outcome = MotorTestOutcome::Kept;
        return result;
    }
    return restore(record, axis, result, view);
}

MotorTestResult MotorTest::restore(ClsKdxAxis& record, int axis, MotorTestResult result,
                                   MotorTestView& view) {
    view.SetHourglass(true);
    bool restored = false;
    // A silent controller may answer again in a moment: keep trying for a while.
    for (int attempt = 1; attempt <= RestoreAttempts && !restored; ++attempt) {
        if (attempt > 1) {
            delay_.TimeDelay(RestoreRetryPause);
        }
        const bool motor = record.RestorePrevMotorSetting(axis) == 1;
        restored = record.RestorePrevLimitSetting(axis) == 1 && motor;
    }
    if (restored) {
        view.SelectSettings(result.prevMotorSetting, result.prevLimitSetting);
    }
    view.SetHourglass(false);
    if (!restored) {
        result.outcome = MotorTestOutcome::NotRestored;
        prompts_.Message("The controller did not answer, so the original settings could not be "
                         "restored.\r\n\r\nAxis " +
                             std::to_string(axis) + " had motor setting " +
                             std::to_string(result.prevMotorSetting) + " and limit setting " +
                             std::to_string(result.prevLimitSetting) + " before the test.",
                         TestTitle, Prompts::Icon::Warning, Prompts::Buttons::Ok);
        return result;
    }
    result.outcome = MotorTestOutcome::Restored;
    prompts_.Message("Original settings restored.\r\n\r\nTry again with the correct settings",
                     TestTitle, Prompts::Icon::Information, Prompts::Buttons::Ok);
    return result;
}

} // namespace korval
