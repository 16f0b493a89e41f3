#include "MainWindowRules.h"

#include <algorithm>

namespace korval {

namespace {

void eraseAll(std::string& text, const std::string& what) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
        text.erase(at, what.size());
    }
}

} // namespace

bool ProgramIsEmpty(std::string memoryReply) {
    eraseAll(memoryReply, "\r\n");
    eraseAll(memoryReply, "\r");
    eraseAll(memoryReply, "M");
    return memoryReply == "256";
}

std::string EmptyProgramMessage(std::string programNumberReply) {
    eraseAll(programNumberReply, "\r\n");
    eraseAll(programNumberReply, "\r");
    eraseAll(programNumberReply, "\n");
    eraseAll(programNumberReply, "PM");
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
