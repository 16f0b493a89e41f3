#include "StatusCodes.h"

#include "core/StatusLead.h"

#include <algorithm>

namespace korval::driver {

namespace {

struct Code {
    std::string code;
    const char* word;
    std::string report;
};

// Nested loops and invalid motor numbers share the memory code on the report route.
const Code Codes[] = {
    {"R", "ONLINEREADY", "R"},
    {"J", "OFFLINEREADY", "J"},
    {"B", "BUSY", "B"},
    {"L", "OFFLINEBUSY", ""},
    {"b", "JOGGING", "b"},
    {ErrorCode('S'), "ERRORSTOPBUTTON", ErrorCode('S')},
    {ErrorCode('B'), "ERRORBUSS", ErrorCode('B')},
    {ErrorCode('M'), "ERRORMEMORYFULL", ErrorCode('M')},
    {ErrorCode('N'), "ERRORNESTEDLOOP", ErrorCode('M')},
    {ErrorCode('J'), "ERRORJUMPANDRETURN", ErrorCode('J')},
    {ErrorCode('C'), "ERRORCONTINUOUSINDEX", ErrorCode('C')},
    {ErrorCode('F'), "ERRORFLASHROM", ErrorCode('F')},
    {ErrorCode('E'), "ERROREEPROM", ErrorCode('E')},
    {ErrorCode('I'), "ERRORINVALIDMOTORNUMBER", ErrorCode('M')},
    {ErrorCode('U'), "ERRORBUFFEROVERFLOW", ErrorCode('U')},
};

const Code* find(std::string_view code) {
    const auto it = std::find_if(std::begin(Codes), std::end(Codes),
                                 [&](const Code& c) { return code == c.code; });
    return it == std::end(Codes) ? nullptr : &*it;
}

} // namespace

std::string statusWord(std::string_view code) {
    const auto* c = find(code);
    return c != nullptr ? c->word : ErrorCommunications;
}

std::string reportCode(std::string_view code) {
    const auto* c = find(code);
    return c != nullptr ? c->report : ErrorCommunications;
}

AxisAnswer classifyAxis(const std::optional<std::string>& reply) {
    if (!reply) {
        return AxisAnswer::InDoubt;
    }
    std::string text = *reply;
    std::erase(text, '\r');
    std::erase(text, ',');
    if (text.empty()) {
        return AxisAnswer::InDoubt;
    }
    return text == ErrorCode('B') || text == "J" ? AxisAnswer::NotThere : AxisAnswer::There;
}

int arrangementCode(const AxisAnswer (&axes)[4]) {
    constexpr auto Y = AxisAnswer::There;
    constexpr auto N = AxisAnswer::NotThere;
    constexpr auto D = AxisAnswer::InDoubt;
    const auto [a1, a2, a3, a4] = axes;
    if (a1 != Y) {
        return 64;
    }
    struct Row {
        AxisAnswer a2, a3, a4;
        int code;
    };
    constexpr Row Rows[] = {
        {N, N, N, 1},   {Y, N, N, 2},   {Y, Y, N, 3},   {Y, Y, Y, 4},
        {N, Y, N, 11},  {N, Y, Y, -3},  {D, Y, N, 101}, {D, Y, Y, 102},
        {N, Y, D, 103}, {Y, Y, D, 104}, {D, Y, D, 105},
    };
    for (const auto& r : Rows) {
        if (r.a2 == a2 && r.a3 == a3 && r.a4 == a4) {
            return r.code;
        }
    }
    // Only the first controller can be told apart: nothing on the second answers for sure.
    if (a2 == D && a3 != Y && a4 != Y) {
        return 0;
    }
    return 64;
}

int possibleMotors(const std::optional<std::string>& reply, bool controllerAnswers) {
    if (!controllerAnswers) {
        return 0;
    }
    return classifyAxis(reply) == AxisAnswer::NotThere ? 2 : 4;
}

} // namespace korval::driver
