#pragma once
// The far end of a real pseudo-terminal, scripted by a test: it sees exactly the bytes the
// driver wrote and answers what the test tells it to, at the speed the driver set on the line.
#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

class PtyPeer {
public:
    // Called with everything received so far (and not yet consumed); returns what to answer
    // and how many received bytes it has consumed.
    using Responder = std::function<std::string(std::string& received, speed_t speed)>;

    explicit PtyPeer(Responder responder = {}) : responder_(std::move(responder)) {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY);
        ::grantpt(master_);
        ::unlockpt(master_);
        device_ = ::ptsname(master_);
        // Keep the slave open ourselves so the line survives the driver's open and close.
        holder_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY);
        termios raw{};
        ::tcgetattr(holder_, &raw);
        ::cfmakeraw(&raw);
        ::tcsetattr(holder_, TCSANOW, &raw);
        thread_ = std::thread([this] { run(); });
    }
    ~PtyPeer() {
        hangUp();
        if (holder_ >= 0) {
            ::close(holder_);
        }
    }

    const std::string& device() const { return device_; }
    void send(const std::string& bytes) {
        std::lock_guard lock(mutex_);
        writeAll(bytes);
    }
    std::string received() {
        std::lock_guard lock(mutex_);
        return log_;
    }
    // Closes the master: the driver sees the line go away.
    void hangUp() {
        stop_ = true;
        if (thread_.joinable()) {
            thread_.join();
        }
        std::lock_guard lock(mutex_);
        if (master_ >= 0) {
            ::close(master_);
            master_ = -1;
        }
    }

private:
    void writeAll(const std::string& bytes) {
        std::size_t done = 0;
        while (done < bytes.size() && master_ >= 0) {
            const auto n = ::write(master_, bytes.data() + done, bytes.size() - done);
            if (n <= 0) {
                break;
            }
            done += static_cast<std::size_t>(n);
        }
    }
    void run() {
        char buf[4096];
        while (!stop_) {
            pollfd p{master_, POLLIN, 0};
            if (::poll(&p, 1, 10) <= 0 || !(p.revents & POLLIN)) {
                continue;
            }
            const auto n = ::read(master_, buf, sizeof buf);
            if (n <= 0) {
                continue;
            }
            std::lock_guard lock(mutex_);
            log_.append(buf, static_cast<std::size_t>(n));
            pending_.append(buf, static_cast<std::size_t>(n));
            if (responder_) {
                termios t{};
                ::tcgetattr(master_, &t);
                writeAll(responder_(pending_, ::cfgetospeed(&t)));
            }
        }
    }

    Responder responder_;
    int master_ = -1;
    int holder_ = -1;
    std::string device_;
    std::thread thread_;
    std::atomic<bool> stop_{false};
    std::mutex mutex_;
    std::string log_;
    std::string pending_;
};

// Answers every status query, "V,", with `status`; the driver's other items get no answer.
inline PtyPeer::Responder answerStatus(std::function<std::string()> status) {
    return [status](std::string& received, speed_t) {
        std::string out;
        for (auto at = received.find("V,"); at != std::string::npos; at = received.find("V,")) {
            received.erase(0, at + 2);
            out += status();
        }
        return out;
    };
}
