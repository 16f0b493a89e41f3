#include "AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
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

bool writeFileAtomically(const std::string& path, std::string_view bytes) {
    AtomicFile file(path);
    return file.open() && file.write(bytes) && file.commit();
}

} // namespace korval
