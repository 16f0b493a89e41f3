// The C face of the driver library. Each operation forwards to the one driver object.
#include "KdxDriver.h"
#include "StatusCodes.h"

#include "core/Numbers.h"

#include <cstdlib>
#include <cstring>
#include <string>

using korval::driver::KdxDriver;
using Role = KdxDriver::SinkRole;

namespace {

KdxDriver& driver() {
    return KdxDriver::instance();
}

char* text(const std::string& value) {
    auto* out = static_cast<char*>(std::malloc(value.size() + 1));
    if (out != nullptr) {
        std::memcpy(out, value.data(), value.size());
        out[value.size()] = '\0';
    }
    return out;
}

std::string arg(const char* buffer) {
    return buffer != nullptr ? buffer : "";
}

std::string withoutLineEnds(std::string value) {
    std::erase(value, '\r');
    std::erase(value, '\n');
    return value;
}

// A motor or limit setting as a number; -1 when refused or not answered.
std::int32_t setting(const std::optional<std::string>& reply) {
    if (!reply) {
        return -1;
    }
    const auto value = withoutLineEnds(*reply);
    return korval::IsNumeric(value) ? korval::ToInt32(korval::Val(value)).value_or(-1) : -1;
}

std::int32_t storeSetting(const std::string& word, std::int32_t motor, std::int32_t value) {
    const auto item = word + std::to_string(motor) + "M" + std::to_string(value) + ",";
    return driver().transact(item) && driver().transact("rsm") ? 1 : 0;
}

} // namespace

extern "C" {

void SetTempBufferCallback(const KdxSink* sink) {
    driver().setSink(Role::TempBuffer, sink);
}
void SetBufferCallback(const KdxSink* sink) {
    driver().setSink(Role::Buffer, sink);
}
void SetTerminalCallback(const KdxSink* sink) {
    driver().setSink(Role::Terminal, sink);
}
void SetReportCallback(const KdxSink* sink) {
    driver().setSink(Role::Report, sink);
}
void SetTrafficCallback(const KdxSink* sink) {
    driver().setSink(Role::Traffic, sink);
}

int32_t OpenListenThread(void) {
    return driver().startThreads() ? 1 : 0;
}
int32_t CloseListenThread(void) {
    driver().stopThreads();
    return 0;
}
int32_t OpenPollingThread(void) {
    return driver().startThreads() ? 1 : 0;
}
int32_t ClosePollingThread(void) {
    return 0;
} // polling ends with the receive thread

int32_t ShowForm(void) {
    driver().formOpen = 1;
    return 1;
}
int32_t HideForm(void) {
    driver().formOpen = 0;
    return 1;
}
int32_t WindowHandle(void) {
    return 0;
} // the program draws the traffic view itself
int32_t IsFormOpen(void) {
    return driver().formOpen;
}
int32_t MoveForm(int32_t x, int32_t y) {
    driver().formX = x;
    driver().formY = y;
    return 1;
}

int32_t OpenPort(int32_t port, int32_t baud) {
    return driver().openPort(port, baud) ? 1 : 0;
}
int32_t OpenPortByName(const char* device, int32_t baud) {
    return driver().openDevice(arg(device), 0, baud) ? 1 : 0;
}
int32_t IsPortOpen(void) {
    return driver().isOpen() ? 1 : 0;
}
int32_t ClosePort(void) {
    driver().closePort();
    return 1;
}
int32_t SendToPort(char* buffer) {
    return driver().send(arg(buffer)) ? 1 : 0;
}
char* ReadFromPort(void) {
    return text(driver().readStore(false));
}
char* ReadAndThenClearFromPort(void) {
    return text(driver().readStore(true));
}
int32_t CountCharsAtPort(void) {
    return driver().countStore();
}
int32_t SearchForChars(char* buffer) {
    return driver().storeContains(arg(buffer)) ? 1 : 0;
}
int32_t CleanTerminal(void) {
    driver().cleanTerminal();
    return 1;
}
int32_t ClearTerminal(void) {
    driver().clearTerminal();
    return 1;
}
char* GetTerminal(void) {
    return text(driver().terminal());
}
int32_t ClearPort(void) {
    driver().clearStore();
    return 1;
}
int32_t RemoveFromPort(char* buffer) {
    driver().removeFromStore(arg(buffer));
    return 1;
}
char* VerifyControlStatus(void) {
    return text(driver().verifyStatus());
}
char* StateCheck(char* buffer) {
    return text(driver().verifyStatus() == arg(buffer) ? "1" : "0");
}

int32_t FunctionEscapeTrue(void) {
    driver().setEscape(true);
    return 1;
}
int32_t FunctionEscapeFalse(void) {
    driver().setEscape(false);
    return 1;
}
int32_t AreAllFunctionsEnabled(void) {
    return driver().functionsEnabled() ? 1 : 0;
}

int32_t Online(void) {
    return driver().transact("F,") ? 1 : 0;
}
int32_t Offline(void) {
    return driver().transact("Q,") ? 1 : 0;
}
int32_t KillKdxProgram(void) {
    return driver().transact("K,") ? 1 : 0;
}
int32_t StopKdxProgram(void) {
    return driver().transact("D,") ? 1 : 0;
}

char* GetMotorPosition(int32_t motor) {
    return text(withoutLineEnds(driver().transact("X" + std::to_string(motor) + ",").value_or("")));
}

int32_t WaitForChar(char* buffer, int64_t limit) {
    return driver().waitForChar(arg(buffer), limit);
}
int32_t RunProgram(void) {
    return driver().transact("R") ? 1 : 0;
}
int32_t RunProgramAndWaitForFinish(int64_t limit) {
    return driver().runAndWait(limit);
}

int32_t DetectControl(int32_t highestPort, const KdxSink* progress) {
    return driver().detect(highestPort, progress);
}
int32_t GetCurrentPort(void) {
    return driver().currentPort();
}
int32_t GetCurrentBaud(void) {
    return driver().currentBaud();
}
int32_t GetScanAbortStatus(void) {
    return driver().scanAbort;
}
int32_t SetScanAbortStatus(int32_t flag) {
    driver().scanAbort = flag;
    return 1;
}

int32_t GetMotor(int32_t motor) {
    return setting(driver().transact("getM" + std::to_string(motor) + "M,"));
}
int32_t SetMotor(int32_t motor, int32_t value) {
    return storeSetting("setM", motor, value);
}
int32_t GetLimit(int32_t motor) {
    return setting(driver().transact("getL" + std::to_string(motor) + "M,"));
}
int32_t SetLimit(int32_t motor, int32_t value) {
    return storeSetting("setL", motor, value);
}

char* GetCurrentProgramMemory(void) {
    return text(withoutLineEnds(driver().transact("N,").value_or("")));
}
char* GetCurrentProgramNumber(void) {
    const auto number = driver().transact("PM,");
    return text(number ? "PM" + withoutLineEnds(*number) : "");
}
int32_t SetCurrentProgramNumber(int32_t number) {
    return driver().transact("PM" + std::to_string(number) + ",") ? 1 : 0;
}
char* GetCurrentProgramListing(int32_t number) {
    if (!driver().transact("PM" + std::to_string(number) + ",")) {
        return text("");
    }
    return text(driver().transact("lst,").value_or(""));
}

int32_t PossibleNumOfMotors(void) {
    const auto reply = driver().transact("getM3M,");
    const bool answers = reply.has_value() || driver().transact("V,").has_value();
    return korval::driver::possibleMotors(reply, answers);
}

int32_t ActualNumOfMotors(void) {
    using korval::driver::AxisAnswer;
    AxisAnswer axes[4];
    for (int m = 1; m <= 4; ++m) {
        axes[m - 1] =
            korval::driver::classifyAxis(driver().transact("getM" + std::to_string(m) + "M,"));
    }
    return korval::driver::arrangementCode(axes);
}

void JogNegative(int32_t motor, int32_t speed, const KdxSink* target) {
    driver().jog(motor, speed, false, target);
}
void JogPositive(int32_t motor, int32_t speed, const KdxSink* target) {
    driver().jog(motor, speed, true, target);
}

void FreeText(char* value) {
    std::free(value);
}

} // extern "C"
