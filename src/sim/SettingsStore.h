#pragma once
// The controller's settings: the live ones that the set commands change, and the copy that
// "rsm" keeps over a power cycle.
#include <array>

namespace korval::sim {

class SettingsStore {
public:
    struct Values {
        // Bits of the multi-function word.
        static constexpr int RunButton = 1;       // the Run button starts the current program
        static constexpr int StopInput = 2;       // Input 4 is the Stop button
        static constexpr int JumpInput = 4;       // Input 3 breaks a wait and jumps to program 3
        static constexpr int StopAtOnce = 16;     // the Stop button stops without a ramp
        static constexpr int SelectByInputs = 64; // the Run button runs the program Inputs 2-3 pick
        // The bit of the operating-mode word that runs program 4 at power-up.
        static constexpr int RunAtPowerUp = 128;

        int dm = 1, multi = 3, deadBand = 5, pulseWidth = 10;
        std::array<long, 4> motor{0, 0, 0, 0}, limit{1, 1, 1, 1}, pulseEvery{1, 1, 1, 1},
            jog{1000, 1000, 1000, 1000}, jog2{2000, 2000, 2000, 2000}, jogA{}, jog2A{};
    };

    Values live;

    void save() { stored_ = live; }
    void restore() { live = stored_; }

private:
    Values stored_;
};

} // namespace korval::sim
