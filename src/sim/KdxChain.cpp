#include "sim/KdxChain.h"

#include <algorithm>

namespace korval::sim {

namespace {

using Settings = SettingsStore::Values;

} // namespace

KdxChain::KdxChain(SimOptions options)
    : options_(std::move(options)), framing_(options_.echo), motion_(options_, settings_, bench_),
      runner_(options_, settings_, programs_, bench_, motion_, framing_, now_),
      language_(options_, bench_, settings_, framing_, programs_, motion_, runner_) {
    bench_.analog = options_.analog;
}

bool KdxChain::hasAxis(int axis) const {
    return ArrangementHasAxis(options_.arrangement, axis);
}

void KdxChain::receive(std::string_view bytes) {
    heard_ += static_cast<std::int64_t>(bytes.size());
    framing_.receive(bytes, [this](const KdxFraming::Item& item) { language_.hear(item); });
}

std::string KdxChain::takeOutput() {
    auto out = framing_.takeOutput();
    said_ += static_cast<std::int64_t>(out.size());
    return out;
}

void KdxChain::tick(double dt) {
    motion_.tick(dt, [this] { runner_.overTravel(); });
}

void KdxChain::advance(std::int64_t micros) {
    carry_ += micros;
    while (carry_ > 0) {
        const std::int64_t stepUs = std::min<std::int64_t>(carry_, 1000);
        carry_ -= stepUs;
        now_ += stepUs;
        tick(static_cast<double>(stepUs) / 1e6);
        if (runner_.active()) {
            runner_.step();
        }
    }
}

// ---- the bench ----------------------------------------------------------------------------

void KdxChain::setLimit(int axis, LimitSide side, bool pressed) {
    if (axis >= 1 && axis <= 4) {
        motion_.holdLimit(axis, side, pressed);
        tick(0);
    }
}

void KdxChain::setJogButton(int axis, LimitSide side, bool pressed) {
    if (axis < 1 || axis > 2) {
        return; // jog buttons exist for the first controller's axes only
    }
    const int bit = 1 << ((axis - 1) * 2 + (side == LimitSide::Plus ? 1 : 0));
    bench_.jogButtons = pressed ? bench_.jogButtons | bit : bench_.jogButtons & ~bit;
    if (!hasAxis(axis) || runner_.active() || runner_.fault() != SimFault::None) {
        return;
    }
    const long jogSpeed = settings_.live.jog[axis - 1];
    if (pressed && jogSpeed > 0) {
        motion_.setSpeed(axis, static_cast<double>(jogSpeed));
        motion_.runToLimit(axis, side == LimitSide::Plus ? 1 : -1, true);
    } else if (!pressed) {
        motion_.endJog(axis);
    }
}

void KdxChain::setInput(int input, bool on) {
    if (input < 1 || input > 4) {
        return;
    }
    const int bit = 1 << (input - 1);
    const bool was = bench_.inputs & bit;
    bench_.inputs = on ? bench_.inputs | bit : bench_.inputs & ~bit;
    if (!on || was) {
        return;
    }
    if (input == 4 && (settings_.live.multi & Settings::StopInput)) {
        runner_.pressStopButton();
    } else if (input == 3 && (settings_.live.multi & Settings::JumpInput)) {
        runner_.jumpFromWait(3);
    }
}

void KdxChain::pressRunButton() {
    bench_.runPressed = true;
    if (runner_.active() || runner_.fault() != SimFault::None) {
        return;
    }
    if ((settings_.live.multi & Settings::RunButton) || !language_.online()) {
        if (settings_.live.multi & Settings::SelectByInputs) {
            programs_.select((bench_.inputs >> 1) & 3);
        }
        bench_.runPressed = false;
        runner_.start(programs_.current());
    }
}

void KdxChain::setAnalog(int value) {
    bench_.analog = std::clamp(value, 0, 255);
}

bool KdxChain::injectError(char code) {
    const SimFault fault = FaultFromLetter(code);
    if (fault == SimFault::None) {
        return false;
    }
    runner_.raise(fault);
    return true;
}

void KdxChain::powerCycle() {
    runner_.powerUp();
    settings_.restore();
    framing_.powerUp(options_.echo);
    language_.powerUp();
    motion_.zeroAll();
    if (settings_.live.dm & Settings::RunAtPowerUp) {
        runner_.start(4);
    }
}

} // namespace korval::sim
