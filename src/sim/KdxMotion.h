#pragma once
// The four motors of the chain and the rig they move: ramps, speeds, zero offsets and the limit
// switches at each end of travel. Axes are numbered 1..4.
#include <array>
#include <functional>

#include "sim/BenchInputs.h"
#include "sim/SettingsStore.h"
#include "sim/SimOptions.h"

namespace korval::sim {

enum class LimitSide { Minus, Plus };

class KdxMotion {
public:
    KdxMotion(const SimOptions& options, const SettingsStore& settings, const BenchInputs& bench);

    long position(int axis) const;
    // Where the carriage stands on the rig: steps from the place it started, whatever the
    // controller has since called zero.
    long carriage(int axis) const;
    bool moving(int axis) const;
    bool anyMoving() const;
    bool anyJogging() const;
    // Whether the controller reads the switch as tripped, as its limit setting interprets it.
    bool limitActive(int axis, LimitSide side) const;
    bool limitsWired(int axis) const;

    void setSpeed(int axis, double speed);
    void setAnalogRange(int axis, int range);
    void moveBy(int axis, double steps);
    void moveTo(int axis, double target);
    // Runs until a switch stops it; dir is 1 or -1.
    void runToLimit(int axis, int dir, bool jogging);
    void zeroHere(int axis);
    void zeroAll();
    void holdLimit(int axis, LimitSide side, bool pressed);
    void endJog(int axis);
    void decelerateAll();
    void stopAll();

    // Moves every motor on by dt seconds. `overTravel` is called for each move that a switch
    // stops short of its target.
    void tick(double dt, const std::function<void()>& overTravel);

private:
    struct Motor {
        double pos = 0;    // rig coordinate, 0 = the middle of travel
        double offset = 0; // controller position = pos - offset
        double vel = 0;
        double speed = 2000;
        int analogRange = 0; // >0: speed follows the analog input
        bool moving = false;
        bool toLimit = false;
        bool jogging = false;
        int dir = 0;
        double target = 0;
        bool decelerating = false;
        std::array<bool, 2> limitHeld{}; // forced by the bench, minus and plus
    };

    Motor& motor(int axis) { return motors_[axis - 1]; }
    const Motor& motor(int axis) const { return motors_[axis - 1]; }
    double here(int axis) const;
    double analogSpeed(int range) const;
    double moveSpeed(const Motor& m) const;
    void startMove(int axis, double target, bool toLimit, int dir, bool jogging);

    const SimOptions& options_;
    const SettingsStore& settings_;
    const BenchInputs& bench_;
    std::array<Motor, 4> motors_;
};

} // namespace korval::sim
