#include "sim/KdxMotion.h"

#include <algorithm>
#include <cmath>

namespace korval::sim {

namespace {

constexpr double Acceleration = 40000; // steps per second per second: a short ramp
constexpr double CreepSpeed = 50;      // the slowest a ramp goes before it reaches its target

bool validAxis(int axis) {
    return axis >= 1 && axis <= 4;
}

std::size_t sideIndex(LimitSide side) {
    return side == LimitSide::Plus ? 1 : 0;
}

LimitSide sideOf(int dir) {
    return dir > 0 ? LimitSide::Plus : LimitSide::Minus;
}

} // namespace

KdxMotion::KdxMotion(const SimOptions& options, const SettingsStore& settings,
                     const BenchInputs& bench)
    : options_(options), settings_(settings), bench_(bench) {}

long KdxMotion::position(int axis) const {
    return validAxis(axis) ? std::lround(here(axis)) : 0;
}

long KdxMotion::carriage(int axis) const {
    return validAxis(axis) ? std::lround(motor(axis).pos) : 0;
}

bool KdxMotion::moving(int axis) const {
    return validAxis(axis) && motor(axis).moving;
}

bool KdxMotion::anyMoving() const {
    return std::any_of(motors_.begin(), motors_.end(), [](const Motor& m) { return m.moving; });
}

bool KdxMotion::anyJogging() const {
    return std::any_of(motors_.begin(), motors_.end(),
                       [](const Motor& m) { return m.moving && m.jogging; });
}

double KdxMotion::here(int axis) const {
    const auto& m = motor(axis);
    return m.pos - m.offset;
}

bool KdxMotion::limitsWired(int axis) const {
    return !(options_.unwiredLimits & (1 << (axis - 1)));
}

bool KdxMotion::limitActive(int axis, LimitSide side) const {
    if (!validAxis(axis) || !ArrangementHasAxis(options_.arrangement, axis)) {
        return false;
    }
    const long setting = settings_.live.limit[axis - 1];
    if (!limitsWired(axis)) {
        // An open input is what a tripped normally-closed switch looks like.
        return setting > 0;
    }
    const auto& m = motor(axis);
    const double travel = static_cast<double>(options_.travel);
    const bool atEnd = side == LimitSide::Minus ? m.pos <= -travel : m.pos >= travel;
    const bool pressed = atEnd || m.limitHeld[sideIndex(side)];
    if (setting == 0) {
        return pressed; // auto-detect learns the kind of switch
    }
    // A positive setting expects normally-closed switches, a negative one normally-open.
    const bool closed = options_.normallyOpen ? pressed : !pressed;
    return setting > 0 ? !closed : closed;
}

double KdxMotion::analogSpeed(int range) const {
    const int a = range >= 10 ? range / 10 : 0;
    const int b = range >= 10 ? range % 10 : range;
    const double low = a == 0 ? 1 : a * 1000.0;
    const double high = (a + b) * 1000.0;
    return low + (high - low) * bench_.analog / 255.0;
}

double KdxMotion::moveSpeed(const Motor& m) const {
    return std::max(1.0, m.analogRange > 0 ? analogSpeed(m.analogRange) : m.speed);
}

void KdxMotion::setSpeed(int axis, double speed) {
    auto& m = motor(axis);
    m.speed = speed;
    m.analogRange = 0;
}

void KdxMotion::setAnalogRange(int axis, int range) {
    motor(axis).analogRange = range;
}

void KdxMotion::moveBy(int axis, double steps) {
    moveTo(axis, here(axis) + steps);
}

void KdxMotion::moveTo(int axis, double target) {
    startMove(axis, target, false, target >= here(axis) ? 1 : -1, false);
}

void KdxMotion::runToLimit(int axis, int dir, bool jogging) {
    startMove(axis, 0, true, dir, jogging);
}

void KdxMotion::startMove(int axis, double target, bool toLimit, int dir, bool jogging) {
    if (limitActive(axis, sideOf(dir))) {
        return; // already on the switch in that direction
    }
    auto& m = motor(axis);
    m.moving = true;
    m.toLimit = toLimit;
    m.jogging = jogging;
    m.dir = dir;
    m.target = target;
    m.decelerating = false;
    if (!toLimit && std::fabs(target - here(axis)) < 0.5) {
        m.moving = false;
    }
}

void KdxMotion::zeroHere(int axis) {
    auto& m = motor(axis);
    m.offset = m.pos;
}

void KdxMotion::zeroAll() {
    for (int axis = 1; axis <= 4; ++axis) {
        zeroHere(axis);
    }
}

void KdxMotion::holdLimit(int axis, LimitSide side, bool pressed) {
    motor(axis).limitHeld[sideIndex(side)] = pressed;
}

void KdxMotion::endJog(int axis) {
    auto& m = motor(axis);
    if (m.jogging) {
        m.decelerating = true;
    }
}

void KdxMotion::decelerateAll() {
    for (auto& m : motors_) {
        if (m.moving) {
            m.decelerating = true;
        }
    }
}

void KdxMotion::stopAll() {
    for (auto& m : motors_) {
        m.moving = false;
        m.jogging = false;
        m.vel = 0;
    }
}

void KdxMotion::tick(double dt, const std::function<void()>& overTravel) {
    for (int axis = 1; axis <= 4; ++axis) {
        auto& m = motor(axis);
        if (!m.moving) {
            continue;
        }
        const double speed = moveSpeed(m);
        const double remaining = m.toLimit ? 1e12 : std::fabs(m.target - here(axis));
        const double brake = m.vel * m.vel / (2 * Acceleration);
        if (m.decelerating) {
            m.vel -= Acceleration * dt;
            if (m.vel <= 0) {
                m.vel = 0;
                m.moving = false;
                m.jogging = false;
                continue;
            }
        } else if (remaining <= brake + 0.5) {
            m.vel = std::max(std::min(CreepSpeed, speed), m.vel - Acceleration * dt);
        } else {
            m.vel = std::min(speed, m.vel + Acceleration * dt);
        }
        const double step = m.vel * dt;
        if (!m.toLimit && !m.decelerating && step >= remaining) {
            m.pos = m.target + m.offset;
            m.vel = 0;
            m.moving = false;
        } else {
            m.pos += m.dir * step;
        }
        if (limitsWired(axis)) {
            // The carriage ends at the switches whatever the controller makes of them.
            const double travel = static_cast<double>(options_.travel);
            m.pos = std::clamp(m.pos, -travel, travel);
        }
        if (limitActive(axis, sideOf(m.dir))) {
            // The switch stops the motor where it stands.
            const bool expected = m.toLimit;
            m.vel = 0;
            m.moving = false;
            m.jogging = false;
            if (!expected) {
                overTravel();
            }
        }
    }
}

} // namespace korval::sim
