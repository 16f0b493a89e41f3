#pragma once
// Plays a chain on a real pseudo-terminal in real time. What the host writes to the device
// reaches the chain; the chain's output goes back paced at the line's baud rate (ten bits a
// character), as slowly as the options ask (LinePacer). At any rate but the controller's own the
// chain hears only noise and says nothing.
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "sim/KdxChain.h"

namespace korval::sim {

class PtyHost {
public:
    explicit PtyHost(SimOptions options = {});
    ~PtyHost(); // stops the thread and closes the line
    PtyHost(const PtyHost&) = delete;
    PtyHost& operator=(const PtyHost&) = delete;

    // Opens the pseudo-terminal (raw, at the controller's baud) and starts the thread; false with
    // a reason when the system gives no terminal.
    bool start(std::string& error);
    // Joins the thread and closes the line; safe to call twice.
    void stop();
    // Closes the line under the host's feet, as a pulled cable would; the thread ends.
    void hangUp();

    bool running() const { return running_; }
    const std::string& device() const { return device_; }
    // The speed the host last set on the line, 0 when it is none of the three rates.
    int lineBaud() const;

    // Runs `action` on the chain under the host's lock: the control console and tests.
    void withChain(const std::function<void(KdxChain&)>& action);

private:
    void loop();
    void closeLine();

    KdxChain chain_;
    mutable std::mutex mutex_;
    int master_ = -1;
    int slave_ = -1; // kept open so the line survives the host closing and reopening it
    std::string device_;
    std::thread thread_;
    std::atomic<bool> stop_{false};
    std::atomic<bool> running_{false};
};

} // namespace korval::sim
