#pragma once
// What the controller's status codes and probe replies mean to the driver.
#include <optional>
#include <string>
#include <string_view>

namespace korval::driver {

inline constexpr const char* ErrorCommunications = "ERRORCOMMUNICATIONS";

// The status word for the reply to "V"; ERRORCOMMUNICATIONS for anything unknown.
std::string statusWord(std::string_view code);

// The report code the status window shows for a status code; empty when none is reported.
std::string reportCode(std::string_view code);

// One axis as the probe found it.
enum class AxisAnswer { There, NotThere, InDoubt };

// The reply to "getM{m}M,": a setting, a refusal ("ËB" or "J"), or silence (no reply at all).
AxisAnswer classifyAxis(const std::optional<std::string>& reply);

// The arrangement code of the four axes (axis 1 first).
int arrangementCode(const AxisAnswer (&axes)[4]);

// The number of motors the hardware could drive from the reply to "getM3M,": 4, 2, or 0 when
// the controller itself does not answer.
int possibleMotors(const std::optional<std::string>& reply, bool controllerAnswers);

} // namespace korval::driver
