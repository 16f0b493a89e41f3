#pragma once
// The AutoReverse controller over the driver facade, for the window and the command line alike.
#include "AutoReverseController.h"

#include "link/ClsDriverKdx.h"

#include <functional>

namespace korval {

class KdxAutoReverseController final : public AutoReverseController {
public:
    // `visible` tells whether the window is still shown; none means always (the command line).
    explicit KdxAutoReverseController(ClsDriverKdx& kdx, std::function<bool()> visible = {})
        : kdx_(kdx), visible_(std::move(visible)) {}

    bool Visible() override { return !visible_ || visible_(); }
    void SendCommandsToPort(const std::string& commands) override {
        kdx_.SendCommandsToPort(commands);
    }
    void RunKdxProgramAndWaitForFinish(std::int32_t timeLimit) override {
        kdx_.RunKdxProgramAndWaitForFinish(timeLimit);
    }
    void WaitForCharacter(const std::string& character, std::int32_t timeLimit) override {
        kdx_.WaitForCharacter(character, timeLimit);
    }
    std::string GetCurrentMotorPosition(std::int32_t motor) override {
        return kdx_.GetCurrentMotorPosition(motor);
    }

private:
    ClsDriverKdx& kdx_;
    std::function<bool()> visible_;
};

} // namespace korval
