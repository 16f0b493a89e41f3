#include "sim/ProgramCommand.h"

#include <algorithm>
#include <iterator>

#include "sim/ItemText.h"

namespace korval::sim {

namespace {

constexpr long MaxPosition = 16777215;
// The user words a program may hold.
constexpr long UserWords[] = {0, 90, 4, 5, 14, 15, 24, 25, 34, 35};

CommandReading valid(bool ok) {
    return ok ? CommandReading::Valid : CommandReading::BadValue;
}

// "S", "I" and "IA" with their motor.
CommandReading readMotorCommand(const std::string& text, ProgramCommand& cmd) {
    int motor = 0;
    std::string arg;
    const bool absolute = ReadMotorItem(text, "IA", motor, arg);
    if (!absolute && !ReadMotorItem(text, "I", motor, arg) &&
        !ReadMotorItem(text, "S", motor, arg)) {
        return CommandReading::NotACommand;
    }
    cmd.motor = motor;
    if (motor < 1 || motor > 4) {
        return CommandReading::BadMotor;
    }
    const bool negative = !arg.empty() && arg[0] == '-';
    long v = 0;
    if (!ReadNumber(negative ? arg.substr(1) : arg, 0, MaxPosition, v)) {
        return CommandReading::BadValue;
    }
    if (text[0] == 'S') {
        cmd.op = negative ? ProgramOp::AnalogSpeed : ProgramOp::Speed;
        cmd.value = v;
        return valid(negative ? ValidAnalogRange(v) : v <= 6000);
    }
    if (absolute) {
        cmd.op = negative && v == 0 ? ProgramOp::ZeroHere : ProgramOp::IndexTo;
        cmd.value = negative ? -v : v;
        return CommandReading::Valid;
    }
    cmd.op = v == 0 ? ProgramOp::IndexToLimit : ProgramOp::Index;
    cmd.value = v == 0 ? (negative ? -1 : 1) : (negative ? -v : v);
    return CommandReading::Valid;
}

} // namespace

CommandReading ReadProgramCommand(const std::string& text, ProgramCommand& cmd) {
    cmd = ProgramCommand{};
    cmd.text = text;
    if (text == "LM0") {
        cmd.op = ProgramOp::LoopMarker;
        return CommandReading::Valid;
    }
    if (text == "L0") {
        cmd.op = ProgramOp::LoopForever;
        return CommandReading::Valid;
    }
    if (text.compare(0, 2, "LA") == 0 && text.size() > 2) {
        cmd.op = ProgramOp::LoopCount;
        return valid(ReadNumber(text.substr(2), 1, 65535, cmd.value));
    }
    if (text[0] == 'P' && text.size() > 1 && IsDigit(text[1])) {
        cmd.op = ProgramOp::Pause;
        return valid(ReadNumber(text.substr(1), 1, 65535, cmd.value));
    }
    if (text[0] == 'U' && text.size() > 1 && IsDigit(text[1])) {
        cmd.op = ProgramOp::UserWord;
        if (!ReadNumber(text.substr(1), 0, 99, cmd.value)) {
            return CommandReading::BadValue;
        }
        return valid(std::find(std::begin(UserWords), std::end(UserWords), cmd.value) !=
                     std::end(UserWords));
    }
    return readMotorCommand(text, cmd);
}

} // namespace korval::sim
