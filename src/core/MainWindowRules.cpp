#include "MainWindowRules.h"

#include "Text.h"

namespace korval {

bool ProgramIsEmpty(std::string memoryReply) {
    ReplaceAll(memoryReply, "\r\n", "");
    ReplaceAll(memoryReply, "\r", "");
    ReplaceAll(memoryReply, "M", "");
    return memoryReply == "256";
}

std::string EmptyProgramMessage(std::string programNumberReply) {
    ReplaceAll(programNumberReply, "\r\n", "");
    ReplaceAll(programNumberReply, "\r", "");
    ReplaceAll(programNumberReply, "\n", "");
    ReplaceAll(programNumberReply, "PM", "");
    return "No commands in Program " + programNumberReply + " to run";
}

std::string PortCurrentText(const std::string& port, const std::string& baud) {
    return "Port: Com" + port + ", Baud: " + baud;
}

int BaudIndex(int baud) {
    switch (baud) {
    case 9600:
        return 1;
    case 19200:
        return 2;
    case 38400:
        return 3;
    default:
        return -1;
    }
}

} // namespace korval
