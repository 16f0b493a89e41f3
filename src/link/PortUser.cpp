#include "PortUser.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace korval {

namespace {

namespace fs = std::filesystem;

std::string processName(const fs::path& process) {
    std::ifstream comm(process / "comm");
    std::string name;
    std::getline(comm, name);
    return name;
}

bool holds(const fs::path& process, const fs::path& device) {
    std::error_code ec;
    for (fs::directory_iterator fd(process / "fd", ec), end; !ec && fd != end; fd.increment(ec)) {
        std::error_code linkError;
        const auto target = fs::read_symlink(fd->path(), linkError);
        if (!linkError && target == device) {
            return true;
        }
    }
    return false;
}

} // namespace

std::string PortUser(const std::string& device, const std::string& procFolder) {
    std::error_code ec;
    auto real = fs::canonical(device, ec);
    if (ec) {
        real = device;
    }
    const auto self = std::to_string(::getpid());
    std::string users;
    for (fs::directory_iterator entry(procFolder, ec), end; !ec && entry != end;
         entry.increment(ec)) {
        const auto pid = entry->path().filename().string();
        if (pid.find_first_not_of("0123456789") != std::string::npos || pid == self) {
            continue;
        }
        if (holds(entry->path(), real)) {
            users +=
                (users.empty() ? "" : ", ") + processName(entry->path()) + " (process " + pid + ")";
        }
    }
    return users;
}

} // namespace korval
