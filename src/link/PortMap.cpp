#include "PortMap.h"

#include "core/ProgramFolders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace korval {

namespace {

// Serial device families in the order they are numbered, USB adapters first.
constexpr const char* Families[] = {"ttyUSB", "ttyACM", "ttyS"};

int trailingNumber(const std::string& name, std::size_t from) {
    if (from >= name.size() || name.find_first_not_of("0123456789", from) != std::string::npos) {
        return -1;
    }
    return std::atoi(name.c_str() + from);
}

} // namespace

PortMap::PortMap(std::string folder, std::string devFolder)
    : folder_(std::move(folder)), devFolder_(std::move(devFolder)) {}

std::string PortMap::defaultFolder() {
    if (const char* env = std::getenv("KORVAL_PORTS"); env != nullptr && *env != '\0') {
        return env;
    }
    return UserConfigFolder() + "ports";
}

std::string PortMap::linkPath(int port) const {
    return folder_ + "/Com" + std::to_string(port);
}

std::vector<std::string> PortMap::fallbackDevices() const {
    std::vector<std::string> devices;
    for (const char* family : Families) {
        std::vector<std::pair<int, std::string>> found;
        std::error_code ec;
        for (fs::directory_iterator it(devFolder_, ec), end; !ec && it != end; it.increment(ec)) {
            const auto name = it->path().filename().string();
            const std::string prefix = family;
            if (name.starts_with(prefix)) {
                const int n = trailingNumber(name, prefix.size());
                if (n >= 0) {
                    found.emplace_back(n, it->path().string());
                }
            }
        }
        std::sort(found.begin(), found.end());
        for (auto& f : found) {
            devices.push_back(std::move(f.second));
        }
    }
    return devices;
}

std::string PortMap::resolve(int port) const {
    if (port < 1 || port > HighestPort) {
        return {};
    }
    std::error_code ec;
    const auto link = linkPath(port);
    if (fs::is_symlink(link, ec)) {
        return fs::read_symlink(link, ec).string();
    }
    const auto devices = fallbackDevices();
    return port <= static_cast<int>(devices.size()) ? devices[port - 1] : std::string();
}

std::string PortMap::resolve(const std::string& portOrDevice) const {
    if (portOrDevice.find('/') != std::string::npos) {
        return portOrDevice;
    }
    auto digits = portOrDevice;
    if (digits.size() > 3 && (digits.starts_with("Com") || digits.starts_with("COM"))) {
        digits = digits.substr(3);
    }
    const int port = trailingNumber(digits, 0);
    return port < 0 ? std::string() : resolve(port);
}

bool PortMap::registerPort(int port, const std::string& device) const {
    std::error_code ec;
    fs::create_directories(folder_, ec);
    const auto link = linkPath(port);
    const auto temp = link + ".new";
    fs::remove(temp, ec);
    fs::create_symlink(device, temp, ec);
    if (ec) {
        return false;
    }
    fs::rename(temp, link, ec); // replaces an older link in one step
    return !ec;
}

void PortMap::unregisterPort(int port) const {
    std::error_code ec;
    fs::remove(linkPath(port), ec);
}

std::vector<PortMap::Entry> PortMap::list() const {
    std::vector<Entry> entries;
    const auto devices = fallbackDevices();
    for (int port = 1; port <= HighestPort; ++port) {
        std::error_code ec;
        const auto link = linkPath(port);
        if (fs::is_symlink(link, ec)) {
            entries.push_back({port, fs::read_symlink(link, ec).string(), true});
        } else if (port <= static_cast<int>(devices.size())) {
            entries.push_back({port, devices[port - 1], false});
        }
    }
    return entries;
}

} // namespace korval
