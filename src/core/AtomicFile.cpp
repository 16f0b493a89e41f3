#include "AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korval {

AtomicFile::AtomicFile(std::string path) : path_(std::move(path)) {}

AtomicFile::~AtomicFile() {
    discard();
}

bool AtomicFile::fail(const char* what) {
    error_ = std::string(what) + " " + path_ + ": " + std::strerror(errno);
    discard();
    return false;
}

void AtomicFile::discard() {
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
    if (!tempPath_.empty()) {
        ::unlink(tempPath_.c_str());
        tempPath_.clear();
    }
}

bool AtomicFile::open() {
    discard();
    // Renaming would replace a file whose owner made it read-only; the user meant it to stay.
    if (struct stat target{};
        ::stat(path_.c_str(), &target) == 0 &&
        ((target.st_mode & 0222) == 0 || ::access(path_.c_str(), W_OK) != 0)) {
        errno = EACCES;
        return fail("cannot replace the read-only file");
    }
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < 100; ++attempt) {
        tempPath_ = path_ + ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
        fd_ = ::open(tempPath_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd_ >= 0) {
            break;
        }
        if (errno != EEXIST) {
            tempPath_.clear();
            return fail("cannot create a temporary file for");
        }
    }
    if (fd_ < 0) {
        tempPath_.clear();
        return fail("cannot create a temporary file for");
    }
    struct stat old {};
    if (::stat(path_.c_str(), &old) == 0) {
        ::fchmod(fd_, old.st_mode & 07777); // a replaced file keeps its permissions
    }
    return true;
}

bool AtomicFile::write(std::string_view bytes) {
    if (fd_ < 0) {
        return false;
    }
    while (!bytes.empty()) {
        const auto n = ::write(fd_, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return fail("cannot write");
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

bool AtomicFile::commit() {
    if (fd_ < 0) {
        return false;
    }
    if (::fsync(fd_) != 0) {
        return fail("cannot flush");
    }
    if (::close(fd_) != 0) {
        fd_ = -1;
        return fail("cannot close");
    }
    fd_ = -1;
    if (::rename(tempPath_.c_str(), path_.c_str()) != 0) {
        return fail("cannot replace");
    }
    tempPath_.clear();
    return true;
}

int RemoveLeftoverTemporaries(const std::string& path) {
    const std::filesystem::path target(path);
    const auto prefix = target.filename().string() + ".tmp";
    int removed = 0;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(
             target.has_parent_path() ? target.parent_path() : ".", ec)) {
        const auto name = entry.path().filename().string();
        if (!name.starts_with(prefix)) {
            continue;
        }
        // "<name>.tmp<pid>-<count>", as open() makes them.
        const auto rest = std::string_view(name).substr(prefix.size());
        const auto dash = rest.find('-');
        long long pid = 0;
        const auto [end, err] = std::from_chars(rest.data(), rest.data() + dash, pid);
        if (dash == std::string_view::npos || dash == 0 || err != std::errc() ||
            end != rest.data() + dash || rest.size() == dash + 1 ||
            rest.find_first_not_of("0123456789", dash + 1) != std::string_view::npos || pid <= 0 ||
            pid > std::numeric_limits<pid_t>::max()) {
            continue;
        }
        // A save still under way in a running program is left alone.
        if (::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM) {
            continue;
        }
        std::error_code removeError;
        removed += std::filesystem::remove(entry.path(), removeError) ? 1 : 0;
    }
    return removed;
}

bool writeFileAtomically(const std::string& path, std::string_view bytes) {
    AtomicFile file(path);
    return file.open() && file.write(bytes) && file.commit();
}

} // namespace korval
