#include "ReplyTiming.h"

namespace korval {

namespace {

constexpr int DefaultBaud = 9600;
constexpr double BitsPerCharacter = 10; // start, eight data bits, stop

} // namespace

double ReplyTiming::WireTime(std::size_t characters, int baud) {
    return static_cast<double>(characters) * BitsPerCharacter / (baud > 0 ? baud : DefaultBaud);
}

double ReplyTiming::Gap(int baud) const {
    return gapCharacters * WireTime(1, baud) + gapMarginMs / 1000.0;
}

} // namespace korval
