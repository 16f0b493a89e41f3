#pragma once
// A serial device as the system describes it: where it is, and for a USB adapter what it is.
#include <string>

namespace korval {

struct SerialDevice {
    std::string location;    // "/dev/ttyUSB0"
    std::string description; // "FT232R USB UART"
    std::string manufacturer;
    std::string serialNumber;
    int vendorId = -1; // -1: not a USB device
    int productId = -1;

    bool IsUsb() const { return vendorId >= 0; }
};

} // namespace korval
