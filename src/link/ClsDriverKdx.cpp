#include "ClsDriverKdx.h"
#include "LibraryFile.h"

#include "core/ClsMathConversions.h"

#include <dlfcn.h>

#include <algorithm>
#include <chrono>

namespace korval {

namespace {

constexpr double RecheckPause = 0.1;

bool truth(std::int32_t value) {
    return value == 1;
}

// Text goes to the driver with its length, so that every byte value, NUL included, crosses.
std::int32_t length(const std::string& text) {
    return static_cast<std::int32_t>(text.size());
}

// Whole seconds to the driver's fixed point with four implied decimals; 0 stays 0.
std::int64_t timeLimit(std::int32_t seconds) {
    return seconds == 0 ? 0 : static_cast<std::int64_t>(seconds) * 10000;
}

} // namespace

ClsDriverKdx::ClsDriverKdx(ClsTimeDelay& delay) : delay_(delay) {}

ClsDriverKdx::~ClsDriverKdx() {
    if (library_ != nullptr) {
        dlclose(library_);
    }
}

std::string ClsDriverKdx::takeText(char* text, std::int32_t size) {
    if (text == nullptr) {
        return {};
    }
    std::string out(text, static_cast<std::size_t>(std::max<std::int32_t>(size, 0)));
    if (table_.FreeText != nullptr) {
        table_.FreeText(text);
    }
    return out;
}

void ClsDriverKdx::recheck() {
    delay_.TimeDelay(RecheckPause);
    VerifyStatus();
}

void ClsDriverKdx::AttachTable(const KdxDriverTable& table) {
    table_ = table;
}

std::intptr_t ClsDriverKdx::LoadDriver(const std::string& path) {
    const bool reload = DriverModule != 0;
    if (reload && library_ != nullptr) {
        dlclose(library_);
        library_ = nullptr;
    }
    table_ = {};
    DriverModule = 0;
    if (!LibraryFileProblem(path).empty()) {
        return 0; // a damaged file would fault inside the loader
    }
    // Kept mapped after release: the driver's threads and state must outlive a reload.
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) {
        return 0;
    }
    KdxDriverTable table;
    bool complete = true;
#define KDX_LOAD(ret, name, params)                                                                \
    table.name = reinterpret_cast<ret(*) params>(dlsym(library, #name));                           \
    complete = complete && table.name != nullptr;
    KDX_DRIVER_OPERATIONS(KDX_LOAD)
#undef KDX_LOAD
    if (!complete) { // a library that is not the driver counts as no library
        dlclose(library);
        return 0;
    }
    library_ = library;
    table_ = table;
    DriverModule = reinterpret_cast<std::intptr_t>(library);
    if (reload) {
        EscapeDriverFunctionFalse(); // a fresh load has no escape to lift
    }
    return DriverModule;
}

std::intptr_t ClsDriverKdx::UnLoadDriver() {
    if (DriverModule != 0) {
        do {
            delay_.context().runEvents(std::chrono::milliseconds(1));
            EscapeDriverFunctionTrue();
        } while (AreDriverFunctionsEnabled());
    }
    // Runs once even with nothing loaded: the release loop ends only on a 0 result.
    std::intptr_t result = 0;
    do {
        delay_.context().runEvents(std::chrono::milliseconds(1));
        result = library_ != nullptr ? dlclose(library_) : 0;
        library_ = nullptr;
        DriverModule = result;
    } while (result != 0);
    table_ = {};
    return result;
}

// Calls an operation when the table has it; a missing driver gives the zero result.
#define KDX_CALL(name, ...)                                                                        \
    (table_.name != nullptr ? table_.name(__VA_ARGS__) : decltype(table_.name(__VA_ARGS__))())
// Calls an operation that gives text back with its length.
#define KDX_TEXT(name, ...)                                                                        \
    [&] {                                                                                          \
        std::int32_t size = 0;                                                                     \
        char* text = KDX_CALL(name, __VA_ARGS__ __VA_OPT__(, ) & size);                            \
        return takeText(text, size);                                                               \
    }()
#define KDX_CALL_VOID(name, ...)                                                                   \
    if (table_.name != nullptr) {                                                                  \
        table_.name(__VA_ARGS__);                                                                  \
    }

void ClsDriverKdx::SetCallbackTempBuffer(const KdxSink* sink) {
    KDX_CALL_VOID(SetTempBufferCallback, sink)
}
void ClsDriverKdx::SetCallbackBuffer(const KdxSink* sink) {
    KDX_CALL_VOID(SetBufferCallback, sink)
}
void ClsDriverKdx::SetCallbackTerminal(const KdxSink* sink) {
    KDX_CALL_VOID(SetTerminalCallback, sink)
}
void ClsDriverKdx::SetCallbackReport(const KdxSink* sink) {
    KDX_CALL_VOID(SetReportCallback, sink)
}
void ClsDriverKdx::SetCallbackTraffic(const KdxSink* sink){KDX_CALL_VOID(SetTrafficCallback, sink)}

std::int32_t ClsDriverKdx::OpenPortReceiveThread() {
    return KDX_CALL(OpenListenThread);
}

std::int32_t ClsDriverKdx::ClosePortReceiveThread() {
    while (KDX_CALL(CloseListenThread) != 0) {
    }
    return 0;
}

std::int32_t ClsDriverKdx::OpenPollingReceiveThread() {
    return KDX_CALL(OpenPollingThread);
}

std::int32_t ClsDriverKdx::ClosePollingReceiveThread() {
    while (KDX_CALL(ClosePollingThread) != 0) {
    }
    return 0;
}

std::int32_t ClsDriverKdx::DebugWindowShow() {
    return KDX_CALL(ShowForm);
}
std::int32_t ClsDriverKdx::DebugWindowHide() {
    return KDX_CALL(HideForm);
}
std::int32_t ClsDriverKdx::DebugWindowMove(std::int32_t x, std::int32_t y) {
    return KDX_CALL(MoveForm, x, y);
}
std::int32_t ClsDriverKdx::GetWindowHandle() {
    return KDX_CALL(WindowHandle);
}
bool ClsDriverKdx::IsDebugWindowOpen() {
    return truth(KDX_CALL(IsFormOpen));
}

std::int32_t ClsDriverKdx::PortOpen(std::int32_t port, std::int32_t baud) {
    const auto result = KDX_CALL(OpenPort, port, baud);
    PortChanged.raise(std::to_string(port), std::to_string(baud));
    IsSerialPortOpen();
    return result;
}

std::int32_t ClsDriverKdx::PortOpenByName(const std::string& device, std::int32_t baud) {
    const auto result = KDX_CALL(OpenPortByName, device.c_str(), baud);
    PortChanged.raise(std::to_string(KDX_CALL(GetCurrentPort)), std::to_string(baud));
    IsSerialPortOpen();
    return result;
}

bool ClsDriverKdx::IsSerialPortOpen() {
    const auto state = KDX_CALL(IsPortOpen);
    bool open = false;
    if (state == 1) {
        PortOpenOrClosed.raise("Open");
        open = true;
    } else if (state == 0) {
        PortOpenOrClosed.raise("Closed");
    }
    VerifyStatus();
    return open;
}

std::string ClsDriverKdx::PortProblem() {
    return KDX_TEXT(GetPortProblem);
}

bool ClsDriverKdx::PortIsOpen() {
    return truth(KDX_CALL(IsPortOpen));
}

std::int32_t ClsDriverKdx::PortClose() {
    const auto result = KDX_CALL(ClosePort);
    IsSerialPortOpen();
    return result;
}

std::int32_t ClsDriverKdx::SendCommandsToPort(const std::string& commands) {
    return KDX_CALL(SendToPort, commands.data(), length(commands));
}

std::string ClsDriverKdx::ReadReplyFromPort() {
    return KDX_TEXT(ReadFromPort);
}
std::string ClsDriverKdx::ReadReplyAndClearPort() {
    return KDX_TEXT(ReadAndThenClearFromPort);
}
std::int32_t ClsDriverKdx::CountNumberCharsAtPort() {
    return KDX_CALL(CountCharsAtPort);
}

bool ClsDriverKdx::SearchForCharsAtPort(const std::string& characters) {
    return truth(KDX_CALL(SearchForChars, characters.data(), length(characters)));
}

std::int32_t ClsDriverKdx::TerminalClean() {
    return KDX_CALL(CleanTerminal);
}
std::int32_t ClsDriverKdx::TerminalClear() {
    return KDX_CALL(ClearTerminal);
}
std::string ClsDriverKdx::TerminalGet() {
    return KDX_TEXT(GetTerminal);
}
std::int32_t ClsDriverKdx::ClearPortChars() {
    return KDX_CALL(ClearPort);
}

std::int32_t ClsDriverKdx::RemoveCharsFromPort(const std::string& characters) {
    return KDX_CALL(RemoveFromPort, characters.data(), length(characters));
}

std::string ClsDriverKdx::VerifyStatus() {
    Verifying = true;
    LastStatus = KDX_TEXT(VerifyControlStatus);
    KdxChanged.raise(LastStatus);
    Verifying = false;
    return LastStatus;
}

std::string ClsDriverKdx::VerifyState(const std::string& state) {
    return KDX_TEXT(StateCheck, state.data(), length(state));
}

std::int32_t ClsDriverKdx::EscapeDriverFunctionTrue() {
    return KDX_CALL(FunctionEscapeTrue);
}
std::int32_t ClsDriverKdx::EscapeDriverFunctionFalse() {
    return KDX_CALL(FunctionEscapeFalse);
}
bool ClsDriverKdx::AreDriverFunctionsEnabled() {
    return truth(KDX_CALL(AreAllFunctionsEnabled));
}

std::int32_t ClsDriverKdx::BringOnline() {
    SendCommandsToPort("Q");
    const auto result = KDX_CALL(Online);
    recheck();
    return result;
}

std::int32_t ClsDriverKdx::BringOffline() {
    const auto result = KDX_CALL(Offline);
    recheck();
    return result;
}

std::int32_t ClsDriverKdx::KillProgram() {
    const auto result = KDX_CALL(KillKdxProgram);
    recheck();
    return result;
}

std::int32_t ClsDriverKdx::StopProgram() {
    return KDX_CALL(StopKdxProgram);
}

std::string ClsDriverKdx::GetCurrentMotorPosition(std::int32_t motor) {
    return KDX_TEXT(GetMotorPosition, motor);
}

std::int32_t ClsDriverKdx::WaitForCharacter(const std::string& character, std::int32_t limit) {
    const auto result =
        KDX_CALL(WaitForChar, character.data(), length(character), timeLimit(limit));
    recheck();
    return result;
}

std::int32_t ClsDriverKdx::RunKdxProgram() {
    const auto result = KDX_CALL(RunProgram);
    VerifyStatus();
    return result;
}

std::int32_t ClsDriverKdx::RunKdxProgramAndWaitForFinish(std::int32_t limit) {
    const auto result = KDX_CALL(RunProgramAndWaitForFinish, timeLimit(limit));
    recheck();
    return result;
}

std::string ClsDriverKdx::GetProgramMemory() {
    return KDX_TEXT(GetCurrentProgramMemory);
}
std::string ClsDriverKdx::GetProgramNumber() {
    return KDX_TEXT(GetCurrentProgramNumber);
}
std::int32_t ClsDriverKdx::SetProgramNumber(std::int32_t number) {
    return KDX_CALL(SetCurrentProgramNumber, number);
}

std::string ClsDriverKdx::GetProgramListing(std::int32_t number) {
    return KDX_TEXT(GetCurrentProgramListing, number);
}

void ClsDriverKdx::GetLimitState(std::int32_t axis, LimitLamp* first, LimitLamp* second) {
    if (first == nullptr || second == nullptr) {
        return;
    }
    ClearPortChars();
    SendCommandsToPort("?");
    delay_.TimeDelay(RecheckPause);
    auto reply = ReadReplyAndClearPort();
    std::erase(reply, '^');
    std::erase(reply, '?');
    if (reply.empty()) {
        return;
    }
    const auto bits = ClsMathConversions::BitsLowFirst(static_cast<unsigned char>(reply[0]), 8);
    if (axis >= 1 && axis <= 4) {
        first->SetLit(bits[2 * axis - 2] == '1');
        second->SetLit(bits[2 * axis - 1] == '1');
    }
    first->Refresh();
    second->Refresh();
}

std::int32_t ClsDriverKdx::SetMotorSetting(std::int32_t motor, std::int32_t setting) {
    return KDX_CALL(SetMotor, motor, setting);
}
std::int32_t ClsDriverKdx::GetMotorSetting(std::int32_t motor) {
    return KDX_CALL(GetMotor, motor);
}
std::int32_t ClsDriverKdx::SetLimitSetting(std::int32_t motor, std::int32_t setting) {
    return KDX_CALL(SetLimit, motor, setting);
}
std::int32_t ClsDriverKdx::GetLimitSetting(std::int32_t motor) {
    return KDX_CALL(GetLimit, motor);
}

bool ClsDriverKdx::DetectKdx(std::int32_t highestPort, const KdxSink* progress) {
    const bool found = KDX_CALL(DetectControl, highestPort, progress) != 0;
    // The scan opened ports of its own: the port shown follows the one it left.
    PortChanged.raise(std::to_string(GetPort()), std::to_string(GetBaud()));
    return found;
}

std::int32_t ClsDriverKdx::GetPort() {
    return KDX_CALL(GetCurrentPort);
}
std::int32_t ClsDriverKdx::GetBaud() {
    return KDX_CALL(GetCurrentBaud);
}
std::int32_t ClsDriverKdx::GetAbortStatus() {
    return KDX_CALL(GetScanAbortStatus);
}

std::int32_t ClsDriverKdx::SetAbortStatus(std::int32_t flag) {
    KDX_CALL(SetScanAbortStatus, flag);
    return 0;
}

} // namespace korval
