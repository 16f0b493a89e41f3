#pragma once
// Decisions of the main window's buttons, as text in and text out.
#include <string>

namespace korval {

// The free-memory reply with its line ends and every "M" removed; "256" is an empty program.
bool ProgramIsEmpty(std::string memoryReply);

// "No commands in Program 2 to run" from the program number reply ("PM2").
std::string EmptyProgramMessage(std::string programNumberReply);

// The port label of the status panel: "Port: Com3, Baud: 19200".
std::string PortCurrentText(const std::string& port, const std::string& baud);

// Index of a baud rate in the port window's list (1, 2, 3), or -1 to leave the list alone.
int BaudIndex(int baud);

} // namespace korval
