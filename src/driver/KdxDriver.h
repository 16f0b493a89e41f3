#pragma once
// The serial driver behind the plain C interface: one port, a receive thread that owns the
// QSerialPort, a polling thread that watches the controller's status, and the stores and sinks
// the program reads. Blocking calls let the host's events run while they wait.
#include "ReplyReader.h"

#include "link/KdxDriverApi.h"
#include "link/PortMap.h" // read afresh on every open: the map may change at any time

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

class QObject;
class QSerialPort;
class QThread;

namespace korval::driver {

class KdxDriver {
public:
    using Clock = std::chrono::steady_clock;

    static KdxDriver& instance();
    ~KdxDriver();

    enum class SinkRole { TempBuffer, Buffer, Terminal, Report, Traffic };
    void setSink(SinkRole role, const KdxSink* sink);

    // Port.
    bool openPort(int port, int baud);
    bool openDevice(const std::string& device, int port, int baud);
    void closePort();
    bool isOpen() const { return open_; }
    int currentPort() const { return port_; }
    int currentBaud() const { return baud_; }
    // Why the last open failed, in words; empty after an open that worked.
    std::string portProblem();
    // The program's text, as it stands, adding nothing; it waits while the driver holds the line.
    bool send(const std::string& bytes);

    // Receive store and terminal text.
    std::string readStore(bool clear);
    int countStore();
    bool storeContains(const std::string& text);
    void clearStore();
    void removeFromStore(const std::string& text);
    std::string terminal();
    void clearTerminal();
    void cleanTerminal();

    // One of the driver's own exchanges: the line is held, the item sent, and its answer read in
    // place (bytes that are not the answer go on to the receive store). Empty when the
    // controller did not answer; for a command with no answer, the empty text once it is sent.
    std::optional<std::string> transact(const std::string& item, ReplyKind kind,
                                        Clock::duration cap = std::chrono::seconds(3));
    std::string verifyStatus();
    int waitForChar(const std::string& character, std::int64_t limit);
    int runAndWait(std::int64_t limit);
    int detect(int highestPort, const KdxSink* progress);
    void jog(int motor, int speed, bool positive, const KdxSink* target);

    // Escape and scan abort.
    void setEscape(bool on);
    bool functionsEnabled() const { return !escape_ || activeCalls_ > 0; }
    bool escaped() const { return escape_; }
    std::atomic<int> scanAbort{0};

    // Threads.
    bool startThreads();
    void stopThreads();

    // The debug window is the program's to draw: the driver keeps its state and the traffic.
    std::atomic<int> formOpen{0};
    std::atomic<int> formX{0};
    std::atomic<int> formY{0};

private:
    KdxDriver();
    // Runs `work` in the receive thread, which owns the port, and returns once it is done.
    void inReceiveThread(const std::function<void()>& work);
    void onBytes(const std::string& bytes);
    void toStream(const std::string& stream);
    void write(const std::string& bytes, char direction);
    void settle();
    bool idle();
    void onPortLost();
    void reportPortLost();
    void writeSink(SinkRole role, const std::string& text);
    void traffic(char direction, const std::string& bytes);
    void pollLoop();
    void pollOnce();
    bool waitUntil(const std::function<bool()>& ready, std::optional<Clock::time_point> deadline);
    void pump();
    bool lockExchange();

    std::unique_ptr<QThread> io_;
    QObject* context_ = nullptr; // lives in the receive thread
    QSerialPort* serial_ = nullptr;
    std::atomic<bool> open_{false};
    std::atomic<int> port_{0};
    std::atomic<int> baud_{0};
    std::string portProblem_; // guarded by mutex_

    std::mutex mutex_; // guards everything below it
    std::condition_variable changed_;
    std::string store_;
    std::string terminal_;
    ReplyReader* capture_ = nullptr;     // the answer being read in place, while the line is held
    Clock::time_point lastByte_{};       // of any byte from the controller
    Clock::time_point lastStreamByte_{}; // of a byte that went on to the receive store
    Clock::time_point lastSend_{};       // of the program's own text
    std::uint64_t carets_ = 0;
    KdxSink sinks_[5]{};
    std::string lastReport_;
    int jogMotor_ = 0;
    KdxSink jogTarget_{};

    std::mutex exchange_; // held by an exchange of the driver's own: the program's text waits
    std::atomic<bool> escape_{false};
    std::atomic<int> activeCalls_{0};

    std::thread poller_;
    std::atomic<bool> stopPolling_{false};
    std::mutex pollMutex_;
    std::condition_variable pollWake_;
};

} // namespace korval::driver
