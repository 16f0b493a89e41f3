#pragma once
// What the AutoReverse generator and its actions need of the controller: only a start "From
// Current Location", a test run and a store touch it. The window is behind Visible(): a blocking
// step may outlast it, and nothing more goes out once it has closed.
#include <cstdint>
#include <string>

namespace korval {

class AutoReverseController {
public:
    virtual ~AutoReverseController() = default;
    virtual bool Visible() = 0;
    virtual void SendCommandsToPort(const std::string& commands) = 0;
    virtual void RunKdxProgramAndWaitForFinish(std::int32_t timeLimit) = 0;
    virtual void WaitForCharacter(const std::string& character, std::int32_t timeLimit) = 0;
    virtual std::string GetCurrentMotorPosition(std::int32_t motor) = 0;
};

} // namespace korval
