#pragma once
// Which program holds a serial device open, as far as the system lets us see: the processes
// whose open files we may read (our own user's), by name and number.
#include <string>

namespace korval {

// "korval-cli (process 4711)", or several joined by ", "; empty when no visible process has it.
// `procFolder` is where the process table is mounted.
std::string PortUser(const std::string& device, const std::string& procFolder = "/proc");

} // namespace korval
