#pragma once
// What the bench around the controller feeds its inputs: switches, buttons, the analog input.
namespace korval::sim {

struct BenchInputs {
    int inputs = 0;     // bit n-1 set: input n on
    int jogButtons = 0; // bit 0 jog 1 -, bit 1 jog 1 +, bit 2 jog 2 -, bit 3 jog 2 +
    bool runPressed = false;
    int analog = 128; // 0..255
};

} // namespace korval::sim
