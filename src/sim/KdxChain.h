#pragma once
// A chain of one or two virtual KDX controllers: bytes in, bytes out, on a clock the caller
// steps. Nothing here sleeps or touches a device, so tests can walk a program through time
// exactly and the pty host can drive the same object in real time.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sim/SimOptions.h"

namespace korval::sim {

enum class LimitSide { Minus, Plus };

class KdxChain {
public:
    static constexpr int ProgramCount = 5;
    static constexpr int ProgramMemory = 256;
    static constexpr std::size_t MaxItem = 64;
    static constexpr std::size_t MaxOutput = 64 * 1024;

    explicit KdxChain(SimOptions options = {});

    // Host side.
    void receive(std::string_view bytes);
    std::string takeOutput();
    bool hasOutput() const { return !out_.empty(); }

    // Time. Steps are cut into ticks of at most one millisecond.
    void advance(std::int64_t micros);
    void advanceMs(std::int64_t ms) { advance(ms * 1000); }
    std::int64_t nowMicros() const { return now_; }

    // The bench around the controller: what a user's hand or wiring does.
    void setLimit(int axis, LimitSide side, bool pressed);
    void setJogButton(int axis, LimitSide side, bool pressed);
    void setInput(int input, bool on); // 1..4
    void pressRunButton();
    void pressStopButton();
    void setAnalog(int value); // 0..255
    // "B", "F", "E", "U", "M", "N", "J", "C", "I", "S": raise that error as its cause would.
    bool injectError(char code);
    void setSilentAxes(int mask) { options_.silentAxes = mask; }
    void setSilent(bool silent) { silent_ = silent; }
    bool silent() const { return silent_; }
    // Power off and on: stored settings come back, program 4 runs if the mode word asks for it.
    void powerCycle();

    // Read-outs for tests and the control console.
    long position(int axis) const;
    bool moving(int axis) const;
    std::string statusCode() const;
    int outputMask() const { return outputs_; }
    int freeMemory(int program) const;
    int currentProgram() const { return current_; }
    bool running() const { return run_.active; }
    bool echo() const { return echo_; }
    bool online() const { return online_; }
    const SimOptions& options() const { return options_; }
    bool hasAxis(int axis) const;

private:
    struct Command {
        // 'S' speed, 'A' analog speed, 'I' relative index, 'H' index to a limit (value +1 or
        // -1), 'T' absolute index, 'Z' zero here, 'P' pause, 'U' user word, 'L' loop count,
        // 'W' loop forever, 'M' loop marker, '(' and ')' brackets
        char op = 0;
        int motor = 0;
        long value = 0;
        std::string text; // stored form
    };
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
        std::array<bool, 2> limitHeld{}; // forced by the bench
        std::array<bool, 2> jogHeld{};
    };
    struct Settings {
        int dm = 1, multi = 3, deadBand = 5, pulseWidth = 10;
        std::array<long, 4> motor{}, limit{}, pulseEvery{}, jog{}, jog2{}, jogA{}, jog2A{};
        bool operator==(const Settings&) const = default;
    };
    struct Run {
        bool active = false;
        int program = 0;
        std::vector<Command> code;
        std::size_t pc = 0;
        std::size_t loopStart = 0;
        long loopCount = 0;
        bool inBracket = false;
        int waitMotion = 0; // mask of axes the run waits for
        std::int64_t pauseUntil = -1;
        int waitUser = -1; // 90 run button, 0 input 1
    };

    void handleChar(char c);
    void finishItem();
    void immediate(char c, bool priv);
    void item(const std::string& text, bool priv);
    bool continues(char c) const;
    // 0 not a program command, 1 a command in `cmd`, 2 a bad value, 3 a bad motor number.
    int programCommand(const std::string& text, Command& cmd) const;
    void store(const Command& cmd);
    bool motorItem(const std::string& text, const char* word, int& motor, std::string& arg) const;
    bool refuseAxis(int axis, bool priv); // true when the axis cannot take the item
    bool setting(const std::string& text, bool priv);
    void jog(const std::string& text);
    std::string listing(int program) const;
    void reply(const std::string& text, bool priv);
    void say(const std::string& text);
    void raise(char code);
    void startRun(int program);
    void stepRun();
    void execute(const Command& cmd);
    void endRun();
    void kill();
    void decelStop();
    void startMove(int axis, double target, bool toLimit, int dir, bool jogging);
    void tick(double dt);
    bool limitActive(int axis, int side) const;
    bool limitsWired(int axis) const;
    double analogSpeed(int range) const;
    double moveSpeed(const Motor& m) const;
    int axisState(int axis) const; // 0 there, 1 "J", 2 "ËB", 3 silent
    static int cost(const Command& cmd);

    SimOptions options_;
    Settings live_, stored_;
    std::array<Motor, 4> motors_;
    std::array<std::vector<Command>, ProgramCount> programs_;
    std::array<int, ProgramCount> used_{};
    int current_ = 0;
    Run run_;
    std::string buf_;
    bool skipping_ = false;
    bool priv_ = false;
    bool privTail_ = false; // the last item was private: its separator is not echoed
    bool inComment_ = false;
    std::string out_;
    bool echo_ = false;
    bool online_ = true;
    bool silent_ = false;
    char error_ = 0;
    int outputs_ = 0;
    int inputs_ = 0; // bit n-1 set: input n on
    bool runPressed_ = false;
    int jogButtons_ = 0; // bit 0 jog 1 -, bit 1 jog 1 +, bit 2 jog 2 -, bit 3 jog 2 +
    int analog_ = 128;
    std::int64_t now_ = 0;
    std::int64_t carry_ = 0;
};

} // namespace korval::sim
