#pragma once
// Saved files (settings, scripts, reports) are replaced whole: the new text goes to a temporary
// file beside the target, is flushed to disk, and is then renamed over the target. A crash or a
// full disk at any point leaves either the old file or the new one, never a truncated mix.
#include <string>
#include <string_view>

namespace korval {

class AtomicFile {
public:
    explicit AtomicFile(std::string path);
    ~AtomicFile(); // without commit() the target is left untouched
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    bool open();
    bool write(std::string_view bytes);
    bool commit(); // flush, then rename over the target
    const std::string& error() const { return error_; }

private:
    void discard();
    bool fail(const char* what);

    std::string path_;
    std::string tempPath_;
    int fd_ = -1;
    std::string error_;
};

// Removes the temporary files that saves of `path` left when their program was killed (those of
// a program still running are kept); the count removed. The start-up calls it for the settings.
int RemoveLeftoverTemporaries(const std::string& path);

// One-shot form: true when the file now holds exactly `bytes`.
bool writeFileAtomically(const std::string& path, std::string_view bytes);

} // namespace korval
