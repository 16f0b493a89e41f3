#pragma once
// Whole text files: scripts, reports and the settings file. Output files are replaced
// atomically when closed; append files grow in place, each write flushed as it is made.
#include "AtomicFile.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korval {

// The whole file as bytes; empty when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

class ClsReadWriteFile {
public:
    bool CreateOutputFile(const std::string& path);
    bool WriteToOutputFile(std::string_view text);
    bool CloseOutputFile(); // the target changes only here, and only when every write succeeded

    bool CreateAppendFile(const std::string& path);
    bool WriteToAppendFile(std::string_view text);
    bool CloseAppendFile();

    bool OpenReadFile(const std::string& path);
    std::optional<std::string> ReadFromReadFile() const;
    void CloseReadFile();

    const std::string& LastError() const { return lastError_; }

private:
    std::unique_ptr<AtomicFile> output_;
    bool outputOk_ = false;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> append_{nullptr, &std::fclose};
    std::string readPath_;
    std::string lastError_;
};

} // namespace korval
