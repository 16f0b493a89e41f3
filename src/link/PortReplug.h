#pragma once
// A port whose device went away while it was open (an adapter pulled out, a far end that hung
// up) is kept in mind until the same device is back behind its number; the program then opens
// it again by itself. Closing the port, or opening another, ends the wait.
#include "SerialDevice.h"

#include <optional>
#include <string>

namespace korval {

struct OpenedPort {
    int number = 0;
    int baud = 0;
    std::string device;                  // what the number resolved to when it opened
    std::optional<SerialDevice> adapter; // the USB adapter there, when the system knows one
};

class PortReplug {
public:
    // The port the program has open now; any wait ends.
    void Opened(OpenedPort port);
    // The port was closed on purpose: nothing is awaited.
    void Closed();
    // The driver reported the open port's device gone. True when a wait begins.
    bool Lost();
    bool IsOpen() const { return open_; }
    bool Waiting() const { return waiting_; }
    const OpenedPort& Port() const { return port_; }

    // Whether what is now behind the awaited number is what went: a device is there, and it is
    // the same adapter wherever the system tells adapters apart.
    bool Returned(bool present, const SerialDevice* adapter) const;

    // What the status panel says when the port goes and when it comes back.
    std::string LostText() const;
    std::string BackText() const;

private:
    OpenedPort port_;
    bool open_ = false;
    bool waiting_ = false;
};

} // namespace korval
