#pragma once
// The controller's program memory: five programs of 256 units, one of them current.
#include <array>
#include <string>
#include <vector>

#include "sim/ProgramCommand.h"
#include "sim/SimFault.h"

namespace korval::sim {

class ProgramStore {
public:
    static constexpr int ProgramCount = 5;
    static constexpr int ProgramMemory = 256;

    int current() const { return current_; }
    void select(int program) { current_ = program; }
    void clear();
    // Appends to the current program; a full memory or a loop inside a loop keeps it out.
    SimFault add(const ProgramCommand& cmd);
    int freeMemory(int program) const { return ProgramMemory - used_[program]; }
    std::string listing() const;
    const std::vector<ProgramCommand>& code(int program) const { return programs_[program]; }

private:
    static int cost(ProgramOp op);

    std::array<std::vector<ProgramCommand>, ProgramCount> programs_;
    std::array<int, ProgramCount> used_{};
    int current_ = 0;
};

} // namespace korval::sim
