#include "TerminalLog.h"

#include <cstdio>
#include <ctime>

namespace korval {

namespace {

std::string heading(std::chrono::system_clock::time_point at) {
    const auto seconds = std::chrono::system_clock::to_time_t(at);
    std::tm local{};
    localtime_r(&seconds, &local);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &local);
    return std::string("---- KDX Terminal, ") + date + " ----\r\n";
}

} // namespace

bool TerminalLog::Open(const std::string& path, std::chrono::system_clock::time_point at) {
    Close();
    open_ = file_.CreateAppendFile(path) && file_.WriteToAppendFile(heading(at));
    if (!open_) {
        file_.CloseAppendFile();
    }
    return open_;
}

bool TerminalLog::Write(const TranscriptLine& line) {
    if (open_ && !file_.WriteToAppendFile(LogLine(line))) {
        Close();
        return false;
    }
    return true;
}

void TerminalLog::Close() {
    if (open_) {
        file_.CloseAppendFile();
        open_ = false;
    }
}

std::string LogLine(const TranscriptLine& line) {
    return RenderLine(line, {.sent = true, .times = true, .codes = true}) + "\r\n";
}

} // namespace korval
