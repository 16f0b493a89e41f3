#include "sim/SimFault.h"

#include <algorithm>
#include <iterator>

namespace korval::sim {

namespace {

struct Letter {
    SimFault fault;
    char letter;
};

constexpr Letter Letters[] = {
    {SimFault::Bus, 'B'},
    {SimFault::MemoryFull, 'M'},
    {SimFault::NestedLoop, 'N'},
    {SimFault::JumpAndReturn, 'J'},
    {SimFault::ContinuousIndex, 'C'},
    {SimFault::StopButton, 'S'},
    {SimFault::FlashRom, 'F'},
    {SimFault::Eeprom, 'E'},
    {SimFault::InvalidMotor, 'I'},
    {SimFault::BufferOverflow, 'U'},
};

char letterOf(SimFault fault) {
    const auto it = std::find_if(std::begin(Letters), std::end(Letters),
                                 [&](const Letter& l) { return l.fault == fault; });
    return it == std::end(Letters) ? '\0' : it->letter;
}

} // namespace

std::string FaultStatusCode(SimFault fault) {
    return {StatusLead, letterOf(fault)};
}

std::string FaultStreamCode(SimFault fault) {
    const bool shared = fault == SimFault::NestedLoop || fault == SimFault::InvalidMotor;
    return FaultStatusCode(shared ? SimFault::MemoryFull : fault);
}

SimFault FaultFromLetter(char letter) {
    const auto it = std::find_if(std::begin(Letters), std::end(Letters),
                                 [&](const Letter& l) { return l.letter == letter; });
    return it == std::end(Letters) ? SimFault::None : it->fault;
}

} // namespace korval::sim
