#include "LibraryFile.h"

#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

namespace korval {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

#if __SIZEOF_POINTER__ == 8
constexpr unsigned char OwnClass = ELFCLASS64;
#else
constexpr unsigned char OwnClass = ELFCLASS32;
#endif

// True when [offset, offset + count * size) lies within a file of `fileSize` bytes.
bool within(std::uint64_t offset, std::uint64_t count, std::uint64_t size, std::uint64_t fileSize) {
    if (size != 0 && count > fileSize / size) {
        return false;
    }
    return offset <= fileSize && count * size <= fileSize - offset;
}

bool readAt(int fd, void* into, std::size_t size, off_t offset) {
    auto* bytes = static_cast<char*>(into);
    while (size > 0) {
        const auto n = ::pread(fd, bytes, size, offset);
        if (n <= 0) {
            return false;
        }
        bytes += n;
        size -= static_cast<std::size_t>(n);
        offset += n;
    }
    return true;
}

std::string problemOf(int fd) {
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        return "not a regular file";
    }
    const auto fileSize = static_cast<std::uint64_t>(st.st_size);
    Header h{};
    if (fileSize < sizeof h || !readAt(fd, &h, sizeof h, 0)) {
        return "too short for a library";
    }
    if (std::memcmp(h.e_ident, ELFMAG, SELFMAG) != 0) {
        return "not a library";
    }
    if (h.e_ident[EI_CLASS] != OwnClass || h.e_type != ET_DYN || h.e_phentsize != sizeof(Segment)) {
        return "a library of another kind";
    }
    if (!within(h.e_phoff, h.e_phnum, sizeof(Segment), fileSize) ||
        (h.e_shoff != 0 && !within(h.e_shoff, h.e_shnum, h.e_shentsize, fileSize))) {
        return "cut short: its headers lie past its end";
    }
    std::vector<Segment> segments(h.e_phnum);
    if (!readAt(fd, segments.data(), segments.size() * sizeof(Segment),
                static_cast<off_t>(h.e_phoff))) {
        return "cannot be read";
    }
    for (const auto& s : segments) {
        if (s.p_type != PT_NULL && !within(s.p_offset, 1, s.p_filesz, fileSize)) {
            return "cut short: a segment lies past its end";
        }
    }
    return {};
}

} // namespace

std::string LibraryFileProblem(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return std::string("cannot be opened: ") + std::strerror(errno);
    }
    auto problem = problemOf(fd);
    ::close(fd);
    return problem;
}

} // namespace korval
