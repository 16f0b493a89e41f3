#include "sim/PtyHost.h"

#include "sim/LinePacer.h"

#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace korval::sim {

namespace {

speed_t speedOf(int baud) {
    switch (baud) {
    case 19200:
        return B19200;
    case 38400:
        return B38400;
    default:
        return B9600;
    }
}

int baudOf(speed_t speed) {
    switch (speed) {
    case B9600:
        return 9600;
    case B19200:
        return 19200;
    case B38400:
        return 38400;
    default:
        return 0;
    }
}

} // namespace

PtyHost::PtyHost(SimOptions options) : chain_(std::move(options)) {}

PtyHost::~PtyHost() {
    stop();
}

bool PtyHost::start(std::string& error) {
    if (running_) {
        return true;
    }
    termios tio{};
    cfmakeraw(&tio);
    tio.c_cflag |= CLOCAL | CREAD;
    cfsetispeed(&tio, speedOf(chain_.options().baud));
    cfsetospeed(&tio, speedOf(chain_.options().baud));
    char name[256] = {};
    if (openpty(&master_, &slave_, name, &tio, nullptr) != 0) {
        error = "cannot open a pseudo-terminal";
        master_ = slave_ = -1;
        return false;
    }
    device_ = name;
    // A host that stops reading must never block the thread, or stop() could not join it.
    ::fcntl(master_, F_SETFL, ::fcntl(master_, F_GETFL) | O_NONBLOCK);
    stop_ = false;
    running_ = true;
    thread_ = std::thread([this] { loop(); });
    return true;
}

void PtyHost::stop() {
    stop_ = true;
    if (thread_.joinable()) {
        thread_.join();
    }
    closeLine();
}

void PtyHost::hangUp() {
    stop();
}

void PtyHost::closeLine() {
    std::lock_guard lock(mutex_);
    if (master_ >= 0) {
        ::close(master_);
        master_ = -1;
    }
    if (slave_ >= 0) {
        ::close(slave_);
        slave_ = -1;
    }
    running_ = false;
}

int PtyHost::lineBaud() const {
    std::lock_guard lock(mutex_);
    termios tio{};
    if (master_ < 0 || tcgetattr(master_, &tio) != 0) {
        return 0;
    }
    const int in = baudOf(cfgetispeed(&tio));
    const int out = baudOf(cfgetospeed(&tio));
    // An input speed of 0 means "the same as the output speed".
    return cfgetispeed(&tio) == B0 || in == out ? out : 0;
}

void PtyHost::withChain(const std::function<void(KdxChain&)>& action) {
    std::lock_guard lock(mutex_);
    action(chain_);
}

void PtyHost::loop() {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    LinePacer line(chain_.options().baud, chain_.options());
    auto last = start;
    std::string unwritten; // carried by the line, not yet taken by the terminal
    char buf[512];
    while (!stop_) {
        pollfd p{master_, POLLIN, 0};
        const bool busy = line.waiting() > 0 || !unwritten.empty();
        const int ready = ::poll(&p, 1, busy ? 1 : 5);
        if (ready < 0) {
            continue;
        }
        const int baud = lineBaud();
        std::lock_guard lock(mutex_);
        if (p.revents & POLLIN) {
            const ssize_t n = ::read(master_, buf, sizeof buf);
            // At a rate not its own the controller hears framing errors, not characters.
            if (n > 0 && baud == chain_.options().baud) {
                chain_.receive(std::string_view(buf, static_cast<std::size_t>(n)));
            }
        }
        const auto now = Clock::now();
        chain_.advance(std::chrono::duration_cast<std::chrono::microseconds>(now - last).count());
        last = now;
        if (baud != chain_.options().baud) {
            chain_.takeOutput(); // what it says at a foreign rate is lost on the line
            line.clear();
            unwritten.clear();
            continue;
        }
        const auto micros =
            std::chrono::duration_cast<std::chrono::microseconds>(now - start).count();
        if (line.waiting() < 4096) {
            line.add(chain_.takeOutput(), micros);
        }
        unwritten += line.take(micros);
        if (!unwritten.empty()) {
            const ssize_t w = ::write(master_, unwritten.data(), unwritten.size());
            if (w > 0) {
                unwritten.erase(0, static_cast<std::size_t>(w));
            }
        }
    }
}

} // namespace korval::sim
