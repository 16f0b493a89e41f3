#pragma once
// The one object through which the program reaches the controller: it loads the serial driver
// library by path, forwards every request, turns the driver's 0/1 into Booleans, re-checks the
// status after the operations that change it, and raises the three link events.
#include "KdxDriverApi.h"

#include "core/ClsTimeDelay.h"
#include "core/Event.h"

#include <cstdint>
#include <string>

namespace korval {

// Every driver operation as a pointer; filled by LoadDriver, or by a test with a fake.
struct KdxDriverTable {
#define KDX_TABLE_MEMBER(ret, name, params) ret(*name) params = nullptr;
    KDX_DRIVER_OPERATIONS(KDX_TABLE_MEMBER)
#undef KDX_TABLE_MEMBER
};

// A limit lamp of the troubleshooter: lit shows PicLedRed, unlit PicLedRedDim.
class LimitLamp {
public:
    virtual ~LimitLamp() = default;
    virtual void SetLit(bool lit) = 0;
    virtual void Refresh() = 0;
};

class ClsDriverKdx {
public:
    explicit ClsDriverKdx(ClsTimeDelay& delay);
    ~ClsDriverKdx();
    ClsDriverKdx(const ClsDriverKdx&) = delete;
    ClsDriverKdx& operator=(const ClsDriverKdx&) = delete;

    // Fields of the design.
    std::intptr_t DriverModule = 0;
    bool Verifying = false;
    std::string LastStatus;

    // Events.
    Event<const std::string&, const std::string&> PortChanged; // port text, baud text
    Event<const std::string&> PortOpenOrClosed;                // "Open" or "Closed"
    Event<const std::string&> KdxChanged;                      // the status word

    std::intptr_t LoadDriver(const std::string& path);
    std::intptr_t UnLoadDriver();
    // Runs against a table of functions instead of a loaded library (tests, in-process use).
    void AttachTable(const KdxDriverTable& table);
    const KdxDriverTable& Table() const { return table_; }

    void SetCallbackTempBuffer(const KdxSink* sink);
    void SetCallbackBuffer(const KdxSink* sink);
    void SetCallbackTerminal(const KdxSink* sink);
    void SetCallbackReport(const KdxSink* sink);
    std::int32_t OpenPortReceiveThread();
    std::int32_t ClosePortReceiveThread();
    std::int32_t OpenPollingReceiveThread();
    std::int32_t ClosePollingReceiveThread();
    std::int32_t DebugWindowShow();
    std::int32_t DebugWindowHide();
    std::int32_t DebugWindowMove(std::int32_t x, std::int32_t y);
    std::int32_t GetWindowHandle();
    bool IsDebugWindowOpen();
    std::int32_t PortOpen(std::int32_t port, std::int32_t baud);
    bool IsSerialPortOpen();
    // Whether the port is open, without the events and the status check of IsSerialPortOpen:
    // a scan asks this after each reply to notice a line that has failed.
    bool PortIsOpen();
    // Why the last open failed, in words ("/dev/ttyUSB0 is in use by minicom (process 812)");
    // empty after an open that worked.
    std::string PortProblem();
    std::int32_t PortClose();
    std::int32_t SendCommandsToPort(const std::string& commands);
    std::string ReadReplyFromPort();
    std::string ReadReplyAndClearPort();
    std::int32_t CountNumberCharsAtPort();
    bool SearchForCharsAtPort(const std::string& characters);
    std::int32_t TerminalClean();
    std::int32_t TerminalClear();
    std::string TerminalGet();
    std::int32_t ClearPortChars();
    std::int32_t RemoveCharsFromPort(const std::string& characters);
    std::string VerifyStatus();
    std::string VerifyState(const std::string& state);
    std::int32_t EscapeDriverFunctionTrue();
    std::int32_t EscapeDriverFunctionFalse();
    bool AreDriverFunctionsEnabled();
    std::int32_t BringOnline();
    std::int32_t BringOffline();
    std::int32_t KillProgram();
    std::int32_t StopProgram();
    std::string GetCurrentMotorPosition(std::int32_t motor);
    std::int32_t WaitForCharacter(const std::string& character, std::int32_t timeLimit);
    std::int32_t RunKdxProgram();
    std::int32_t RunKdxProgramAndWaitForFinish(std::int32_t timeLimit);
    std::string GetProgramMemory();
    std::string GetProgramNumber();
    std::int32_t SetProgramNumber(std::int32_t number);
    std::string GetProgramListing(std::int32_t number);
    void GetLimitState(std::int32_t axis, LimitLamp* first, LimitLamp* second);
    std::int32_t SetMotorSetting(std::int32_t motor, std::int32_t setting);
    std::int32_t GetMotorSetting(std::int32_t motor);
    std::int32_t SetLimitSetting(std::int32_t motor, std::int32_t setting);
    std::int32_t GetLimitSetting(std::int32_t motor);
    bool DetectKdx(std::int32_t highestPort, const KdxSink* progress);
    std::int32_t GetPort();
    std::int32_t GetBaud();
    std::int32_t GetAbortStatus();
    std::int32_t SetAbortStatus(std::int32_t flag);

    // This build's additions: a port by device path, and the traffic view of the debug window.
    std::int32_t PortOpenByName(const std::string& device, std::int32_t baud);
    void SetCallbackTraffic(const KdxSink* sink);

private:
    std::string takeText(char* text, std::int32_t size);
    void recheck(); // pause 0.1 s, then VerifyStatus

    ClsTimeDelay& delay_;
    KdxDriverTable table_;
    void* library_ = nullptr;
};

} // namespace korval
