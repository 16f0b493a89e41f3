#include "PortLabels.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace korval {

namespace {

// The device file a path ends at, links followed; empty when there is none.
std::string realDevice(const std::string& path) {
    std::error_code ec;
    const auto real = fs::canonical(path, ec);
    return ec ? std::string() : real.string();
}

} // namespace

const SerialDevice* AdapterAt(const std::string& device, const std::vector<SerialDevice>& known) {
    const auto real = realDevice(device);
    for (const auto& d : known) {
        if (d.IsUsb() &&
            (d.location == device || (!real.empty() && realDevice(d.location) == real))) {
            return &d;
        }
    }
    return nullptr;
}

std::string PortLabel(const PortMap::Entry& entry, const std::vector<SerialDevice>& known) {
    auto label = "Com" + std::to_string(entry.port) + "  ";
    const auto real = realDevice(entry.device);
    if (real.empty()) {
        return label + entry.device + " (missing)";
    }
    label += real;
    if (const auto* adapter = AdapterAt(real, known)) {
        const auto& name =
            adapter->description.empty() ? adapter->manufacturer : adapter->description;
        if (!name.empty()) {
            label += "  " + name;
        }
    }
    return label;
}

std::vector<LabelledPort> LabelPorts(const PortMap& map, const std::vector<SerialDevice>& known) {
    std::vector<LabelledPort> ports;
    for (const auto& entry : map.list()) {
        ports.push_back({entry.port, PortLabel(entry, known)});
    }
    return ports;
}

} // namespace korval
