#include "sim/ProgramStore.h"

namespace korval::sim {

namespace {

bool isLoop(ProgramOp op) {
    return op == ProgramOp::LoopCount || op == ProgramOp::LoopForever;
}

} // namespace

int ProgramStore::cost(ProgramOp op) {
    switch (op) {
    case ProgramOp::Speed:
    case ProgramOp::AnalogSpeed:
    case ProgramOp::Index:
    case ProgramOp::IndexTo:
        return 4;
    case ProgramOp::Pause:
    case ProgramOp::LoopCount:
    case ProgramOp::IndexToLimit:
    case ProgramOp::ZeroHere:
        return 3;
    default:
        return 1;
    }
}

void ProgramStore::clear() {
    programs_[current_].clear();
    used_[current_] = 0;
}

SimFault ProgramStore::add(const ProgramCommand& cmd) {
    auto& program = programs_[current_];
    if (isLoop(cmd.op)) {
        // A second loop over the part another loop already repeats is a loop inside a loop.
        for (auto it = program.rbegin(); it != program.rend() && it->op != ProgramOp::LoopMarker;
             ++it) {
            if (isLoop(it->op)) {
                return SimFault::NestedLoop;
            }
        }
    }
    if (used_[current_] + cost(cmd.op) > ProgramMemory) {
        return SimFault::MemoryFull;
    }
    used_[current_] += cost(cmd.op);
    program.push_back(cmd);
    return SimFault::None;
}

std::string ProgramStore::listing() const {
    std::string text;
    for (const auto& cmd : programs_[current_]) {
        text += cmd.text + ",";
    }
    return text + "\r";
}

} // namespace korval::sim
