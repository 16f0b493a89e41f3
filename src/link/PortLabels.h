#pragma once
// How the port lists name a port: its number, the device it resolves to, and for a USB adapter
// the adapter's description, so that the user can tell which number is which plug.
#include "PortMap.h"
#include "SerialDevice.h"

#include <string>
#include <vector>

namespace korval {

// The adapter behind a device path, through links such as /dev/serial/by-id/...; null when
// the system does not know one there.
const SerialDevice* AdapterAt(const std::string& device, const std::vector<SerialDevice>& known);

// "Com3  /dev/ttyUSB0  FT232R USB UART"; "Com4  /dev/pts/9 (missing)" for a link to nowhere.
std::string PortLabel(const PortMap::Entry& entry, const std::vector<SerialDevice>& known);

struct LabelledPort {
    int port;
    std::string label;
};

// Every number that resolves to a device, in order.
std::vector<LabelledPort> LabelPorts(const PortMap& map, const std::vector<SerialDevice>& known);

} // namespace korval
