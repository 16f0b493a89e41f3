#pragma once
// The terminal's session written to a file as it goes: every line with its time and its
// direction, control characters visible, whatever the window shows. Each session is added to
// the end of the file under a heading of its own.
#include "TerminalTranscript.h"

#include "core/ClsReadWriteFile.h"

#include <chrono>
#include <string>

namespace korval {

class TerminalLog {
public:
    // False, with the reason in Problem(), when the file cannot be written.
    bool Open(const std::string& path, std::chrono::system_clock::time_point at);
    // False when the file did not take the line; the log is closed then.
    bool Write(const TranscriptLine& line);
    void Close();
    bool IsOpen() const { return open_; }
    const std::string& Problem() const { return file_.LastError(); }

private:
    ClsReadWriteFile file_;
    bool open_ = false;
};

// A line as the log keeps it: "12:03:04.120 > getD0,<CR>" and a CR LF.
std::string LogLine(const TranscriptLine& line);

} // namespace korval
