#include "ClsReadWriteFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korval {

std::optional<std::string> readWholeFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return std::nullopt;
    }
    std::string bytes;
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0 && !S_ISDIR(st.st_mode);
    if (ok && st.st_size > 0) {
        bytes.reserve(static_cast<std::size_t>(st.st_size));
    }
    char chunk[65536];
    while (ok) {
        const auto n = ::read(fd, chunk, sizeof chunk);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        ok = n >= 0;
        if (n <= 0) {
            break;
        }
        bytes.append(chunk, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return ok ? std::optional<std::string>(std::move(bytes)) : std::nullopt;
}

bool ClsReadWriteFile::CreateOutputFile(const std::string& path) {
    output_ = std::make_unique<AtomicFile>(path);
    outputOk_ = output_->open();
    if (!outputOk_) {
        lastError_ = output_->error();
    }
    return outputOk_;
}

bool ClsReadWriteFile::WriteToOutputFile(std::string_view text) {
    outputOk_ = outputOk_ && output_ && output_->write(text);
    if (!outputOk_ && output_) {
        lastError_ = output_->error();
    }
    return outputOk_;
}

bool ClsReadWriteFile::CloseOutputFile() {
    const bool ok = outputOk_ && output_ && output_->commit();
    if (!ok && output_) {
        lastError_ = output_->error();
    }
    output_.reset();
    outputOk_ = false;
    return ok;
}

bool ClsReadWriteFile::CreateAppendFile(const std::string& path) {
    append_.reset(std::fopen(path.c_str(), "ab"));
    if (!append_) {
        lastError_ = "cannot open " + path + ": " + std::strerror(errno);
    }
    return static_cast<bool>(append_);
}

bool ClsReadWriteFile::WriteToAppendFile(std::string_view text) {
    // Flushed at once: an append file is a log, and what was written must survive a crash.
    const bool ok = append_ &&
                    std::fwrite(text.data(), 1, text.size(), append_.get()) == text.size() &&
                    std::fflush(append_.get()) == 0;
    if (append_ && !ok) {
        lastError_ = std::string("cannot write: ") + std::strerror(errno);
    }
    return ok;
}

bool ClsReadWriteFile::CloseAppendFile() {
    const bool ok = append_ && std::fflush(append_.get()) == 0;
    append_.reset();
    return ok;
}

bool ClsReadWriteFile::OpenReadFile(const std::string& path) {
    const bool readable = ::access(path.c_str(), R_OK) == 0;
    readPath_ = readable ? path : std::string();
    if (!readable) {
        lastError_ = "cannot open " + path + ": " + std::strerror(errno);
    }
    return readable;
}

std::optional<std::string> ClsReadWriteFile::ReadFromReadFile() const {
    return readPath_.empty() ? std::nullopt : readWholeFile(readPath_);
}

void ClsReadWriteFile::CloseReadFile() {
    readPath_.clear();
}

} // namespace korval
