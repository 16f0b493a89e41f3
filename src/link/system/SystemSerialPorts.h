#pragma once
// The serial devices the system knows, with what it knows of each USB adapter.
#include "link/SerialDevice.h"

#include <vector>

namespace korval {

std::vector<SerialDevice> SystemSerialPorts();

} // namespace korval
