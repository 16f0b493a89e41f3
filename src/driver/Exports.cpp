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

// A text result: its bytes, zero-ended, and its length through `length`.
char* text(const std::string& value, int32_t* length) {
    auto* out = static_cast<char*>(std::malloc(value.size() + 1));
    if (out != nullptr) {
        std::memcpy(out, value.data(), value.size());
        out[value.size()] = '\0';
    }
    if (length != nullptr) {
        *length = out != nullptr ? static_cast<int32_t>(value.size()) : 0;
    }
    return out;
}

std::string arg(const char* buffer, int32_t length) {
    return buffer != nullptr && length > 0 ? std::string(buffer, static_cast<std::size_t>(length))
                                           : std::string();
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

std::optional<std::string> ask(const std::string& item) {
    return driver().transact(item, korval::driver::ReplyKind::Word);
}

bool command(const std::string& item) {
    return driver().transact(item, korval::driver::ReplyKind::None).has_value();
}

// 1 once the controller has stored it; 0 when it refused the setting ("J", "ËB") or was silent.
std::int32_t storeSetting(const std::string& word, std::int32_t motor, std::int32_t value) {
    const auto item = word + std::to_string(motor) + "M" + std::to_string(value) + ",rsm";
    const auto refusal = driver().transact(item, korval::driver::ReplyKind::Stored);
    return refusal && refusal->empty() ? 1 : 0;
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
    return driver().openDevice(device != nullptr ? device : "", 0, baud) ? 1 : 0;
}
int32_t IsPortOpen(void) {
    return driver().isOpen() ? 1 : 0;
}
int32_t ClosePort(void) {
    driver().closePort();
    return 1;
}
int32_t SendToPort(const char* buffer, int32_t length) {
    return driver().send(arg(buffer, length)) ? 1 : 0;
}
char* ReadFromPort(int32_t* length) {
    return text(driver().readStore(false), length);
}
char* ReadAndThenClearFromPort(int32_t* length) {
    return text(driver().readStore(true), length);
}
int32_t CountCharsAtPort(void) {
    return driver().countStore();
}
int32_t SearchForChars(const char* buffer, int32_t length) {
    return driver().storeContains(arg(buffer, length)) ? 1 : 0;
}
int32_t CleanTerminal(void) {
    driver().cleanTerminal();
    return 1;
}
int32_t ClearTerminal(void) {
    driver().clearTerminal();
    return 1;
}
char* GetTerminal(int32_t* length) {
    return text(driver().terminal(), length);
}
int32_t ClearPort(void) {
    driver().clearStore();
    return 1;
}
int32_t RemoveFromPort(const char* buffer, int32_t length) {
    driver().removeFromStore(arg(buffer, length));
    return 1;
}
char* VerifyControlStatus(int32_t* length) {
    return text(driver().verifyStatus(), length);
}
char* StateCheck(const char* buffer, int32_t length, int32_t* resultLength) {
    return text(driver().verifyStatus() == arg(buffer, length) ? "1" : "0", resultLength);
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
    return command("F,") ? 1 : 0;
}
int32_t Offline(void) {
    return command("Q,") ? 1 : 0;
}
int32_t KillKdxProgram(void) {
    return command("K,") ? 1 : 0;
}
int32_t StopKdxProgram(void) {
    return command("D,") ? 1 : 0;
}

char* GetMotorPosition(int32_t motor, int32_t* length) {
    return text(withoutLineEnds(ask("X" + std::to_string(motor) + ",").value_or("")), length);
}

int32_t WaitForChar(const char* buffer, int32_t length, int64_t limit) {
    return driver().waitForChar(arg(buffer, length), limit);
}
int32_t RunProgram(void) {
    return command("R") ? 1 : 0;
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
    return setting(ask("getM" + std::to_string(motor) + "M,"));
}
int32_t SetMotor(int32_t motor, int32_t value) {
    return storeSetting("setM", motor, value);
}
int32_t GetLimit(int32_t motor) {
    return setting(ask("getL" + std::to_string(motor) + "M,"));
}
int32_t SetLimit(int32_t motor, int32_t value) {
    return storeSetting("setL", motor, value);
}

char* GetCurrentProgramMemory(int32_t* length) {
    return text(withoutLineEnds(ask("N,").value_or("")), length);
}
char* GetCurrentProgramNumber(int32_t* length) {
    const auto number = ask("PM,");
    return text(number ? "PM" + withoutLineEnds(*number) : "", length);
}
int32_t SetCurrentProgramNumber(int32_t number) {
    return command("PM" + std::to_string(number) + ",") ? 1 : 0;
}
char* GetCurrentProgramListing(int32_t number, int32_t* length) {
    if (!command("PM" + std::to_string(number) + ",")) {
        return text("", length);
    }
    return text(driver().transact("lst,", korval::driver::ReplyKind::Listing).value_or(""), length);
}

int32_t PossibleNumOfMotors(void) {
    const auto reply = ask("getM3M,");
    // Silence from axis 3 alone still means a controller there: it answers its version.
    const bool answers = reply.has_value() || ask("getD0,").has_value();
    return korval::driver::possibleMotors(reply, answers);
}

int32_t ActualNumOfMotors(void) {
    using korval::driver::AxisAnswer;
    AxisAnswer axes[4];
    for (int m = 1; m <= 4; ++m) {
        axes[m - 1] = korval::driver::classifyAxis(ask("getM" + std::to_string(m) + "M,"));
    }
    return korval::driver::arrangementCode(axes);
}

void JogNegative(int32_t motor, int32_t speed, const KdxSink* target) {
    driver().jog(motor, speed, false, target);
}
void JogPositive(int32_t motor, int32_t speed, const KdxSink* target) {
    driver().jog(motor, speed, true, target);
}

char* GetPortProblem(int32_t* length) {
    return text(driver().portProblem(), length);
}

void FreeText(char* value) {
    std::free(value);
}

} // extern "C"
