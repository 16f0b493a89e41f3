#include "KdxDriver.h"

#include "StatusCodes.h"

#include "link/PortUser.h"

#include <QCoreApplication>
#include <QObject>
#include <QSerialPort>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace korval::driver {

namespace {

using namespace std::chrono_literals;

// Bounds that keep a flood from the controller from growing memory without end.
constexpr std::size_t StoreLimit = 65535;
constexpr std::size_t TerminalLimit = 2 * 65535;
constexpr std::size_t TerminalKeep = 32767; // what CleanTerminal leaves
constexpr auto PollPeriod = 500ms;
constexpr auto JogPollPeriod = 100ms;
constexpr auto ScanWait = 150ms;
// An answer starts within this time of its item, and goes on without a pause this long.
constexpr auto ReplyWait = 300ms;
// Before reading an answer in place, the line must be quiet for a moment and the program's own
// last query past the time in which its reply comes, so that no byte of it is taken for ours.
constexpr auto QuietGap = 20ms;
constexpr auto ProgramReplyTime = 100ms;
constexpr auto SettleCap = 1s;
// The poller asks only when the program has left the line alone this long.
constexpr auto PollIdle = 300ms;
// How the traffic view marks the driver's own items, apart from the program's text (">").
constexpr char OwnItem = '#';
constexpr const char* StopItem = "D,";
constexpr int Bauds[] = {9600, 19200, 38400};

void keepTail(std::string& text, std::size_t limit, std::size_t keep) {
    if (text.size() > limit) {
        text.erase(0, text.size() - keep);
    }
}

std::string clock() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto t = system_clock::to_time_t(now);
    const auto ms = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm local{};
    localtime_r(&t, &local);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min, local.tm_sec,
                  static_cast<int>(ms));
    return buf;
}

// Control characters made visible for the traffic view.
std::string visible(const std::string& bytes) {
    std::string out;
    for (const char c : bytes) {
        if (c == '\r') {
            out += "<CR>";
        } else if (c == '\n') {
            out += "<LF>";
        } else if (c == '\t') {
            out += "<TAB>";
        } else {
            out += c;
        }
    }
    return out;
}

// Why a device would not open, in the words a user at the bench needs.
std::string openProblem(const std::string& device, QSerialPort::SerialPortError error,
                        const QString& detail) {
    if (const auto users = PortUser(device); !users.empty()) {
        return device + " is in use by " + users;
    }
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return device + " does not exist";
    case QSerialPort::PermissionError:
        return device + " is in use by another program, or not yours to open (" +
               detail.toStdString() + ")";
    default:
        return device + ": " + detail.toStdString();
    }
}

} // namespace

KdxDriver& KdxDriver::instance() {
    // Never destroyed: its threads are stopped by CloseListenThread, and at process exit Qt may
    // already be gone.
    static auto* driver = new KdxDriver();
    return *driver;
}

KdxDriver::KdxDriver() = default;

KdxDriver::~KdxDriver() {
    stopThreads();
}

void KdxDriver::setSink(SinkRole role, const KdxSink* sink) {
    std::lock_guard lock(mutex_);
    sinks_[static_cast<int>(role)] = sink != nullptr ? *sink : KdxSink{};
}

void KdxDriver::writeSink(SinkRole role, const std::string& text) {
    KdxSink sink;
    {
        std::lock_guard lock(mutex_);
        sink = sinks_[static_cast<int>(role)];
    }
    if (sink.write != nullptr) {
        sink.write(sink.context, text.data(), static_cast<std::int32_t>(text.size()));
    }
}

void KdxDriver::traffic(char direction, const std::string& bytes) {
    writeSink(SinkRole::Traffic, clock() + " " + direction + " " + visible(bytes) + "\r\n");
}

void KdxDriver::inReceiveThread(const std::function<void()>& work) {
    // Qt's own hand-off between the threads is invisible to the thread sanitizer; the mutex
    // makes what the work did visible to it as well, as it is to the program.
    std::mutex done;
    QMetaObject::invokeMethod(
        context_,
        [&] {
            std::lock_guard lock(done);
            work();
        },
        Qt::BlockingQueuedConnection);
    std::lock_guard lock(done);
}

bool KdxDriver::startThreads() {
    if (io_) {
        return true;
    }
    if (QCoreApplication::instance() == nullptr) {
        return false; // QSerialPort needs the host's application object
    }
    io_ = std::make_unique<QThread>();
    io_->setObjectName("KdxReceive");
    io_->start();
    context_ = new QObject();
    context_->moveToThread(io_.get());
    stopPolling_ = false;
    poller_ = std::thread([this] { pollLoop(); });
    return true;
}

void KdxDriver::stopThreads() {
    if (poller_.joinable()) {
        {
            std::lock_guard lock(pollMutex_);
            stopPolling_ = true;
        }
        pollWake_.notify_all();
        poller_.join();
    }
    if (io_) {
        closePort();
        inReceiveThread([this] { delete context_; });
        context_ = nullptr;
        io_->quit();
        io_->wait();
        io_.reset();
    }
}

bool KdxDriver::openPort(int port, int baud) {
    const auto device = PortMap().resolve(port);
    if (device.empty()) {
        closePort(); // opening another port closes the earlier one, found or not
        port_ = port;
        baud_ = baud;
        std::lock_guard lock(mutex_);
        portProblem_ = "Com" + std::to_string(port) + " names no device (see the port map)";
        return false;
    }
    return openDevice(device, port, baud);
}

std::string KdxDriver::portProblem() {
    std::lock_guard lock(mutex_);
    return portProblem_;
}

bool KdxDriver::openDevice(const std::string& device, int port, int baud) {
    closePort();
    port_ = port;
    baud_ = baud;
    if (baud <= 0 || !startThreads()) {
        std::lock_guard lock(mutex_);
        portProblem_ = baud <= 0 ? "no baud rate was given" : "the driver cannot start";
        return false;
    }
    bool ok = false;
    std::string problem;
    inReceiveThread([&] {
        auto* serial = new QSerialPort(context_);
        serial->setPortName(QString::fromStdString(device));
        ok = serial->setBaudRate(baud) && serial->setDataBits(QSerialPort::Data8) &&
             serial->setParity(QSerialPort::NoParity) &&
             serial->setStopBits(QSerialPort::OneStop) &&
             serial->setFlowControl(QSerialPort::NoFlowControl) &&
             serial->open(QIODevice::ReadWrite);
        if (!ok) {
            problem = openProblem(device, serial->error(), serial->errorString());
            delete serial;
            return;
        }
        serial_ = serial;
        QObject::connect(serial, &QSerialPort::readyRead, context_, [this, serial] {
            const auto data = serial->readAll();
            onBytes(std::string(data.constData(), static_cast<std::size_t>(data.size())));
        });
        QObject::connect(serial, &QSerialPort::errorOccurred, context_,
                         [this](QSerialPort::SerialPortError error) {
                             if (error != QSerialPort::NoError &&
                                 error != QSerialPort::TimeoutError) {
                                 onPortLost();
                             }
                         });
    });
    {
        std::lock_guard lock(mutex_);
        portProblem_ = problem;
        if (ok) {
            lastReport_.clear();
            open_ = true;
        }
    }
    pollWake_.notify_all();
    return ok;
}

void KdxDriver::closePort() {
    if (!io_) {
        return;
    }
    bool jogging = false;
    {
        std::lock_guard lock(mutex_);
        jogging = jogMotor_ != 0;
    }
    if (jogging) {
        traffic(OwnItem, StopItem);
    }
    inReceiveThread([this, jogging] {
        if (serial_ != nullptr) {
            if (jogging) {
                // A jog runs until it is told to stop: closing the line must not leave it
                // running to the end of its travel.
                serial_->write(StopItem);
                serial_->waitForBytesWritten(200);
            }
            serial_->close();
            delete serial_;
            serial_ = nullptr;
        }
    });
    open_ = false;
    {
        std::lock_guard lock(mutex_);
        jogMotor_ = 0;
    }
    changed_.notify_all();
}

void KdxDriver::onPortLost() {
    // Runs in the receive thread: the device went away (the cable, the adapter, a hang-up).
    if (serial_ != nullptr) {
        serial_->close();
        serial_->deleteLater();
        serial_ = nullptr;
    }
    open_ = false;
    changed_.notify_all();
    std::string report;
    {
        std::lock_guard lock(mutex_);
        if (lastReport_ != ErrorCommunications) {
            lastReport_ = report = ErrorCommunications;
        }
    }
    if (!report.empty()) {
        writeSink(SinkRole::Report, report);
    }
    reportPortLost();
}

void KdxDriver::reportPortLost() {
    // Every time, unlike a status report that is written only when it changes: the program
    // waits for the device and opens the port again by itself.
    writeSink(SinkRole::Report, KDX_REPORT_PORT_LOST);
}

bool KdxDriver::send(const std::string& bytes) {
    if (!open_ || escape_ || !lockExchange()) {
        return false;
    }
    std::lock_guard exchange(exchange_, std::adopt_lock);
    write(bytes, '>');
    std::lock_guard lock(mutex_);
    lastSend_ = Clock::now();
    return true;
}

void KdxDriver::write(const std::string& bytes, char direction) {
    traffic(direction, bytes);
    QMetaObject::invokeMethod(
        context_,
        [this, data = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))] {
            if (serial_ != nullptr) {
                serial_->write(data);
            }
        },
        Qt::QueuedConnection);
}

void KdxDriver::onBytes(const std::string& bytes) {
    traffic('<', bytes);
    std::string stream;
    {
        std::lock_guard lock(mutex_);
        lastByte_ = Clock::now();
        stream = capture_ != nullptr ? capture_->feed(bytes) : bytes;
    }
    toStream(stream);
    changed_.notify_all();
}

void KdxDriver::toStream(const std::string& stream) {
    if (stream.empty()) {
        return;
    }
    std::string terminalText;
    {
        std::lock_guard lock(mutex_);
        lastStreamByte_ = Clock::now();
        store_ += stream;
        keepTail(store_, StoreLimit, StoreLimit);
        terminal_ += stream;
        keepTail(terminal_, TerminalLimit, TerminalKeep);
        terminalText = terminal_;
    }
    writeSink(SinkRole::Buffer, stream);
    writeSink(SinkRole::Terminal, terminalText);
    const auto ends = std::count(stream.begin(), stream.end(), '^');
    for (auto n = ends; n > 0; --n) {
        writeSink(SinkRole::Report, "^");
    }
    // A run's end counts only now, so what ended a wait is already in the program's mailbox.
    if (ends > 0) {
        std::lock_guard lock(mutex_);
        carets_ += static_cast<std::uint64_t>(ends);
    }
}

std::string KdxDriver::readStore(bool clear) {
    std::lock_guard lock(mutex_);
    auto text = store_;
    if (clear) {
        store_.clear();
    }
    return text;
}

int KdxDriver::countStore() {
    std::lock_guard lock(mutex_);
    return static_cast<int>(store_.size());
}

bool KdxDriver::storeContains(const std::string& text) {
    std::lock_guard lock(mutex_);
    return store_.find(text) != std::string::npos;
}

void KdxDriver::clearStore() {
    std::lock_guard lock(mutex_);
    store_.clear();
}

void KdxDriver::removeFromStore(const std::string& text) {
    std::lock_guard lock(mutex_);
    if (const auto at = store_.find(text); !text.empty() && at != std::string::npos) {
        store_.erase(at, text.size());
    }
}

std::string KdxDriver::terminal() {
    std::lock_guard lock(mutex_);
    return terminal_;
}

void KdxDriver::clearTerminal() {
    {
        std::lock_guard lock(mutex_);
        terminal_.clear();
    }
    writeSink(SinkRole::Terminal, "");
}

void KdxDriver::cleanTerminal() {
    std::string text;
    {
        std::lock_guard lock(mutex_);
        keepTail(terminal_, TerminalKeep, TerminalKeep);
        text = terminal_;
    }
    writeSink(SinkRole::Terminal, text);
}

void KdxDriver::pump() {
    auto* app = QCoreApplication::instance();
    if (app != nullptr && QThread::currentThread() == app->thread()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, 2ms);
}

bool KdxDriver::waitUntil(const std::function<bool()>& ready,
                          std::optional<Clock::time_point> deadline) {
    ++activeCalls_;
    bool done = false;
    while (!(done = ready())) {
        if (escape_ || !open_ || (deadline && Clock::now() >= *deadline)) {
            break;
        }
        pump();
    }
    --activeCalls_;
    return done;
}

bool KdxDriver::lockExchange() {
    // Held for one exchange at most. No events run meanwhile: an event handler that asked the
    // controller in turn would wait on this very exchange.
    while (!exchange_.try_lock()) {
        if (escape_ || !open_) {
            return false;
        }
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, 2ms);
    }
    return true;
}

void KdxDriver::settle() {
    const auto start = Clock::now();
    std::unique_lock lock(mutex_);
    while (!escape_ && open_) {
        const auto now = Clock::now();
        if ((now - lastStreamByte_ >= QuietGap && now - lastSend_ >= ProgramReplyTime) ||
            now - start >= SettleCap) {
            return;
        }
        changed_.wait_for(lock, 2ms);
    }
}

bool KdxDriver::idle() {
    std::lock_guard lock(mutex_);
    const auto now = Clock::now();
    return now - lastStreamByte_ >= PollIdle && now - lastSend_ >= PollIdle;
}

std::optional<std::string> KdxDriver::transact(const std::string& item, ReplyKind kind,
                                               Clock::duration cap) {
    if (escape_ || !open_ || !lockExchange()) {
        return std::nullopt;
    }
    std::lock_guard exchange(exchange_, std::adopt_lock);
    if (kind == ReplyKind::None) {
        write(item, OwnItem); // nothing to read, so nothing of the program's can be taken
        return std::string();
    }
    settle();
    ReplyReader reader(kind, item);
    {
        std::lock_guard lock(mutex_);
        capture_ = &reader;
    }
    const auto sent = Clock::now();
    write(item, OwnItem);
    ++activeCalls_;
    {
        std::unique_lock lock(mutex_);
        while (!escape_ && open_ && !reader.complete()) {
            const auto now = Clock::now();
            if (now - std::max(sent, lastByte_) >= ReplyWait || now - sent >= cap) {
                break;
            }
            changed_.wait_for(lock, 2ms);
        }
        capture_ = nullptr;
    }
    --activeCalls_;
    // Half an answer is no answer: the rest was lost on the line.
    return reader.complete() ? std::optional(reader.reply()) : std::nullopt;
}

std::string KdxDriver::verifyStatus() {
    const auto code = transact("V,", ReplyKind::Status);
    return code ? statusWord(*code) : ErrorCommunications;
}

int KdxDriver::waitForChar(const std::string& character, std::int64_t limit) {
    if (escape_ || !open_) {
        return 0;
    }
    std::optional<Clock::time_point> deadline;
    if (limit > 0) {
        deadline = Clock::now() + std::chrono::microseconds(limit * 100);
    }
    return waitUntil([&] { return storeContains(character); }, deadline) ? 1 : 0;
}

int KdxDriver::runAndWait(std::int64_t limit) {
    std::uint64_t before = 0;
    {
        std::lock_guard lock(mutex_);
        before = carets_;
    }
    if (!transact("R", ReplyKind::None)) {
        return 0;
    }
    std::optional<Clock::time_point> deadline;
    if (limit > 0) {
        deadline = Clock::now() + std::chrono::microseconds(limit * 100);
    }
    return waitUntil(
               [&] {
                   std::lock_guard lock(mutex_);
                   return carets_ > before;
               },
               deadline)
               ? 1
               : 0;
}

int KdxDriver::detect(int highestPort, const KdxSink* progress) {
    const auto say = [progress](const std::string& text) {
        if (progress != nullptr && progress->write != nullptr) {
            progress->write(progress->context, text.data(), static_cast<std::int32_t>(text.size()));
        }
    };
    for (int port = 1; port <= highestPort; ++port) {
        const auto device = PortMap().resolve(port);
        for (const int baud : Bauds) {
            if (scanAbort != 0 || escape_) {
                say("Scan aborted");
                return 0;
            }
            say("Com" + std::to_string(port) + " at " + std::to_string(baud) + " baud...");
            pump();
            if (device.empty() || !openDevice(device, port, baud)) {
                continue;
            }
            // A query of the controller's own language, so that any controller is found.
            if (transact("getD0,", ReplyKind::Word, ScanWait)) {
                say("Found KDX on Com" + std::to_string(port) + " at " + std::to_string(baud) +
                    " baud");
                return 1;
            }
            closePort();
        }
    }
    say("No KDX found");
    return 0;
}

void KdxDriver::jog(int motor, int speed, bool positive, const KdxSink* target) {
    const std::string sign = positive ? "" : "-";
    const auto item =
        "H" + std::to_string(motor) + "M" +
        (speed < 0 ? "A" + sign + std::to_string(-speed) : sign + std::to_string(speed)) + ",";
    if (!transact(item, ReplyKind::None)) {
        return;
    }
    {
        std::lock_guard lock(mutex_);
        jogMotor_ = motor;
        jogTarget_ = target != nullptr ? *target : KdxSink{};
    }
    pollWake_.notify_all();
}

void KdxDriver::setEscape(bool on) {
    escape_ = on;
    changed_.notify_all();
}

void KdxDriver::pollLoop() {
    std::unique_lock lock(pollMutex_);
    while (!stopPolling_) {
        bool jogging = false;
        {
            std::lock_guard state(mutex_);
            jogging = jogMotor_ != 0;
        }
        pollWake_.wait_for(lock, jogging ? JogPollPeriod : PollPeriod);
        if (stopPolling_) {
            break;
        }
        lock.unlock();
        pollOnce();
        lock.lock();
    }
}

void KdxDriver::pollOnce() {
    if (!open_ || escape_ || !idle() || !exchange_.try_lock()) {
        return; // the program is talking to the controller; look again next round
    }
    exchange_.unlock();
    const auto code = transact("V,", ReplyKind::Status);
    const auto report = code ? reportCode(*code) : std::string(ErrorCommunications);
    int motor = 0;
    KdxSink target{};
    bool changed = false;
    {
        std::lock_guard lock(mutex_);
        changed = report != lastReport_ && !report.empty();
        if (changed) {
            lastReport_ = report;
        }
        motor = jogMotor_;
        target = jogTarget_;
        if (motor != 0 && code && *code != "b") {
            jogMotor_ = 0; // the jog has ended: one last position below
        }
    }
    if (changed) {
        writeSink(SinkRole::Report, report);
    }
    if (motor != 0 && target.write != nullptr) {
        if (const auto position = transact("X" + std::to_string(motor) + ",", ReplyKind::Word)) {
            target.write(target.context, position->data(),
                         static_cast<std::int32_t>(position->size()));
        }
    }
}

} // namespace korval::driver
