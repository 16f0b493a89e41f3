#pragma once
// Port numbers (Com1 … Com255) name serial devices through a folder of links, one per number:
// "<folder>/Com3" -> "/dev/ttyUSB0". The folder is $KORVAL_PORTS when set, else
// "$XDG_CONFIG_HOME/korval/ports" (or "~/.config/korval/ports"). A number with no link falls
// back to the machine's serial devices in a fixed order (USB adapters first), so a USB serial
// adapter is Com1 on a stock machine without any set-up.
#include <string>
#include <vector>

namespace korval {

class PortMap {
public:
    static constexpr int HighestPort = 255;

    explicit PortMap(std::string folder = defaultFolder(), std::string devFolder = "/dev");

    static std::string defaultFolder();
    const std::string& folder() const { return folder_; }

    // The device for a port number; empty when there is none. Text that is not a number but a
    // path ("/dev/pts/4") is taken as the device itself.
    std::string resolve(int port) const;
    std::string resolve(const std::string& portOrDevice) const;

    // Links ComN to the device (replacing an older link); false when the folder cannot be made.
    bool registerPort(int port, const std::string& device) const;
    void unregisterPort(int port) const;

    struct Entry {
        int port;
        std::string device;
        bool linked; // from the folder, not the fallback
    };
    std::vector<Entry> list() const;

private:
    std::vector<std::string> fallbackDevices() const;
    std::string linkPath(int port) const;

    std::string folder_;
    std::string devFolder_;
};

} // namespace korval
