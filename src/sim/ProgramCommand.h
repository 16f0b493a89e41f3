#pragma once
// One command of a stored program, read from the item that the host sent.
#include <string>

namespace korval::sim {

enum class ProgramOp {
    Speed,        // "S1M500"
    AnalogSpeed,  // "S1M-11": the speed follows the analog input within a range
    Index,        // "I1M400": relative
    IndexToLimit, // "I1M0", "I1M-0": value is the direction, 1 or -1
    IndexTo,      // "IA1M400": absolute
    ZeroHere,     // "IA1M-0"
    Pause,        // "P15": tenths of a second
    UserWord,     // "U90": wait for the Run button, "U0" for Input 1, "U15" switch an output
    LoopCount,    // "LA5"
    LoopForever,  // "L0"
    LoopMarker,   // "LM0": where a loop starts again
    BracketOpen,  // "(": the moves up to ")" run together
    BracketClose,
};

struct ProgramCommand {
    ProgramOp op{};
    int motor = 0; // 0 for the commands that name none
    long value = 0;
    std::string text; // the stored form, as "lst" gives it back
};

enum class CommandReading { NotACommand, Valid, BadValue, BadMotor };

// Reads an item as a program command; `command` holds it when the reading is Valid.
CommandReading ReadProgramCommand(const std::string& text, ProgramCommand& command);

} // namespace korval::sim
