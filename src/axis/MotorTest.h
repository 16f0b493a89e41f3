#pragma once
// The motor test of the axis tool: write the chosen settings, move the motor 400 steps forward
// and back, and put the old settings back unless the user keeps the new ones. A stop or a
// controller that falls silent ends the test early with the same restore; a restore the
// controller never confirms is told to the user, so nothing is left half written unknown.
#include "ClsKdxAxis.h"
#include "MotorList.h"

#include "core/ClsTimeDelay.h"
#include "core/Prompts.h"
#include "link/ClsDriverKdx.h"

#include <functional>
#include <string>

namespace korval {

// What a window does around the test; the command line prints it instead.
class MotorTestView {
public:
    virtual ~MotorTestView() = default;
    // "Please Wait": the wizard's message while the wizard is up, otherwise the message box.
    virtual void ShowPleaseWait(bool shown) = 0;
    virtual void SetHourglass(bool busy) = 0;
    // The axis position after each move, cleaned as a position.
    virtual void ShowPosition(const std::string& steps) = 0;
    // After a restore: the settings the controller holds again, for the lists to show.
    virtual void SelectSettings(int motorSetting, int limitSetting) = 0;
};

enum class MotorTestOutcome {
    Kept,        // the user answered Yes twice: the new settings stay in the controller
    Restored,    // refused, stopped, or the controller fell silent; the old settings are back
    NotRestored, // the controller never confirmed the old settings; the user was told
    NotStarted,  // a setting that can't be kept, or no answer to the first read: nothing written
};

struct MotorTestResult {
    MotorTestOutcome outcome = MotorTestOutcome::NotStarted;
    int prevMotorSetting = 0; // what the controller held before the test
    int prevLimitSetting = 0;
};

class MotorTest {
public:
    static constexpr int Speed = 2000; // steps per second
    static constexpr int Steps = 400;  // each way
    static constexpr int RestoreAttempts = 10;
    static constexpr double RestoreRetryPause = 1.0; // seconds between restore attempts

    // `stopRequested` is the main window's Stop, read between the steps of the test.
    MotorTest(ClsDriverKdx& driver, ClsTimeDelay& delay, Prompts& prompts,
              std::function<bool()> stopRequested);

    // `record` is the axis record the tool works with, `axis` the axis the commands address;
    // `motorRow` under `make` is the motor setting.
    MotorTestResult Run(ClsKdxAxis& record, int axis, MotorMake make, int motorRow,
                        int limitSetting, MotorTestView& view);

    // "C,S1M2000,,I1M400": the double comma is what the controller has always been sent.
    static std::string MoveCommand(int axis, int steps);

private:
    bool move(int axis, int steps, MotorTestView& view); // false when the test must end
    bool stopped() const;
    bool ask(const std::string& question, const std::string& title);
    MotorTestResult restore(ClsKdxAxis& record, int axis, MotorTestResult result,
                            MotorTestView& view);

    ClsDriverKdx& driver_;
    ClsTimeDelay& delay_;
    Prompts& prompts_;
    std::function<bool()> stopRequested_;
};

} // namespace korval
