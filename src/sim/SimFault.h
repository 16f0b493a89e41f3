#pragma once
#include "core/StatusLead.h"
// The controller's error states. Each shows as the lead byte and a letter: in the status while
// it holds, and once in the stream when it arises.
#include <string>

namespace korval::sim {


enum class SimFault {
    None,
    Bus,
    MemoryFull,
    NestedLoop,
    JumpAndReturn,
    ContinuousIndex,
    StopButton,
    FlashRom,
    Eeprom,
    InvalidMotor,
    BufferOverflow,
};

// "ËN" for a nested loop: what the status query answers.
std::string FaultStatusCode(SimFault fault);
// What the stream carries when the fault arises: a nested loop and an invalid motor number
// share the code of a full memory.
std::string FaultStreamCode(SimFault fault);
// The fault a status letter names ('N' a nested loop); None for any other character.
SimFault FaultFromLetter(char letter);

} // namespace korval::sim
