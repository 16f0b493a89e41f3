#include "CommandLanguage.h"

#include "core/StatusLead.h"

#include "core/ClsMathConversions.h"
#include "core/Numbers.h"
#include "core/Text.h"

namespace korval::kdx {

namespace {

std::string motorItem(std::string_view word, int motor, std::string_view tail = ",") {
    return std::string(word) + std::to_string(motor) + "M" + std::string(tail);
}

} // namespace

std::string GetFirmwareVersion() {
    return "getD0,";
}
std::string GetFirmwareDate() {
    return "getD1,";
}
std::string GetModeNumber() {
    return "getD2,";
}
std::string GetOperatingMode() {
    return "getDM,";
}
std::string GetMultifunctionInputs() {
    return "getI,";
}
std::string GetDeadBand() {
    return "getDA,";
}
std::string GetPulseWidth() {
    return "getPA,";
}
std::string GetPulseEvery(int motor) {
    return motorItem("getP", motor);
}
std::string GetMotorSetting(int motor) {
    return motorItem("getM", motor);
}
std::string GetLimitSetting(int motor) {
    return motorItem("getL", motor);
}
std::string GetJoystickPrimary(int motor) {
    return motorItem("getj", motor);
}
std::string GetJoystickSecondary(int motor) {
    return motorItem("getJ", motor);
}
std::string GetAnalogPrimary(int motor) {
    return motorItem("getjA", motor);
}
std::string GetAnalogSecondary(int motor) {
    return motorItem("getJA", motor);
}
std::string GetCurrentProgram() {
    return "PM,";
}
std::string GetCurrentProgramAssociate() {
    return "PMA,";
}
std::string GetCurrentProgramBare() {
    return "PM\r";
}
std::string ListProgram(int program) {
    return "PM" + std::to_string(program) + ",lst,";
}
std::string SelectProgram(int program) {
    // The leading comma keeps the item clear of whatever was sent before it.
    return ",PM" + std::to_string(program) + ",";
}
std::string SelectProgramAsRead(std::string_view kept) {
    return std::string(TrimBlanks(",PM" + std::string(kept) + ","));
}
std::string GetOverTravelOrBacklash() {
    return "O,";
}
std::string GetAnalogInput() {
    return "@";
}
std::string GetLimitMask() {
    return "?,";
}
std::string GetInputMask() {
    return "~,";
}
std::string GetOutputMask() {
    return "$,";
}
std::string PollInputMask() {
    return "~";
}
std::string PollOutputMask() {
    return "$";
}

std::string SetJoystickSpeeds(int motor, long primary, long secondary) {
    return "C," + motorItem("setj", motor, "") + std::to_string(primary) + "," +
           motorItem("setJ", motor, "") + std::to_string(secondary) + ",,rsm";
}
std::string SetAnalogSettings(int motor, long primary, long secondary) {
    return "C," + motorItem("setjA", motor, "") + std::to_string(primary) + "," +
           motorItem("setJA", motor, "") + std::to_string(secondary) + ",,rsm";
}
std::string SetDeadBand(long value) {
    return "setDA" + std::to_string(value) + ",rsm";
}
std::string SetMultifunctionInputs(int word) {
    return "C,setI" + std::to_string(word) + ",rsm";
}

std::string Speed(int motor, long stepsPerSecond) {
    return motorItem("S", motor, "") + std::to_string(stepsPerSecond) + ",";
}
std::string Index(int motor, long steps) {
    return motorItem("I", motor, "") + std::to_string(steps) + ",";
}
std::string SingleMove(int motor, long speed, long steps) {
    return "C," + Speed(motor, speed) + Index(motor, steps) + "R";
}

std::string WithoutCR(std::string reply) {
    std::erase(reply, '\r');
    return reply;
}

double ReadWord(const std::string& reply) {
    return Val(WithoutCR(reply));
}

std::optional<int> ReadMask(std::string_view reply) {
    if (reply.empty()) {
        return std::nullopt;
    }
    return static_cast<unsigned char>(reply.front());
}

std::string CrToCrLf(std::string text) {
    ReplaceAll(text, "\r", "\r\n");
    return text;
}

std::string WordBits(double value) {
    return ClsMathConversions::BitsLowFirst(value, 8);
}

int CountCodeFromReply(std::string reply) {
    ReplaceAll(reply, "getM3M", "");
    std::erase(reply, ',');
    std::erase(reply, '\r');
    if (reply.empty()) {
        return 0;
    }
    if (reply == ErrorCode('B') || reply == "J") {
        return 1; // the controller refused: it has no third motor
    }
    return 2;
}

std::string ListingForDisplay(std::string formatted) {
    ReplaceAll(formatted, ";", "\t\t;");
    ReplaceAll(formatted, "\r", "\r\n");
    if (const auto at = formatted.find("\t\t;M"); at != std::string::npos) {
        formatted.replace(at, 4, ";M");
    }
    return formatted;
}

} // namespace korval::kdx
