#pragma once
// A chain of one or two virtual KDX controllers: bytes in, bytes out, on a clock the caller
// steps. Nothing here sleeps or touches a device, so tests can walk a program through time
// exactly and the pty host can drive the same object in real time.
//
// The chain owns its parts: the framing of the byte streams, the language that acts on each
// item, the program store and the runner, and the motors. It works the bench around them.
#include <cstdint>
#include <string>
#include <string_view>

#include "sim/BenchInputs.h"
#include "sim/KdxFraming.h"
#include "sim/KdxLanguage.h"
#include "sim/KdxMotion.h"
#include "sim/ProgramRunner.h"
#include "sim/ProgramStore.h"
#include "sim/SettingsStore.h"
#include "sim/SimOptions.h"

namespace korval::sim {

class KdxChain {
public:
    static constexpr int ProgramCount = ProgramStore::ProgramCount;
    static constexpr int ProgramMemory = ProgramStore::ProgramMemory;
    static constexpr std::size_t MaxItem = KdxFraming::MaxItem;
    static constexpr std::size_t MaxOutput = KdxFraming::MaxOutput;

    explicit KdxChain(SimOptions options = {});
    // The parts hold references to each other.
    KdxChain(const KdxChain&) = delete;
    KdxChain& operator=(const KdxChain&) = delete;

    // Host side.
    void receive(std::string_view bytes);
    std::string takeOutput();
    bool hasOutput() const { return framing_.hasOutput(); }

    // Time. Steps are cut into ticks of at most one millisecond.
    void advance(std::int64_t micros);
    void advanceMs(std::int64_t ms) { advance(ms * 1000); }
    std::int64_t nowMicros() const { return now_; }

    // The bench around the controller: what a user's hand or wiring does.
    void setLimit(int axis, LimitSide side, bool pressed);
    void setJogButton(int axis, LimitSide side, bool pressed);
    void setInput(int input, bool on); // 1..4
    void pressRunButton();
    void pressStopButton() { runner_.pressStopButton(); }
    void setAnalog(int value); // 0..255
    // "B", "F", "E", "U", "M", "N", "J", "C", "I", "S": raise that error as its cause would.
    bool injectError(char code);
    void setSilentAxes(int mask) { options_.silentAxes = mask; }
    void setSilent(bool silent) { framing_.setSilent(silent); }
    bool silent() const { return framing_.silent(); }
    // Power off and on: stored settings come back, program 4 runs if the mode word asks for it.
    void powerCycle();

    // Read-outs for tests and the control console.
    long position(int axis) const { return motion_.position(axis); }
    long carriage(int axis) const { return motion_.carriage(axis); }
    bool moving(int axis) const { return motion_.moving(axis); }
    std::string statusCode() const { return language_.statusCode(); }
    int outputMask() const { return runner_.outputs(); }
    int freeMemory(int program) const { return programs_.freeMemory(program); }
    int currentProgram() const { return programs_.current(); }
    bool running() const { return runner_.active(); }
    const ProgramRunner& runner() const { return runner_; }
    SimFault fault() const { return runner_.fault(); }
    const std::vector<ProgramCommand>& code(int program) const { return programs_.code(program); }
    bool echo() const { return framing_.echo(); }
    bool online() const { return language_.online(); }
    const SimOptions& options() const { return options_; }
    // Bytes heard from the host and said back since the chain was made: the line's traffic.
    std::int64_t bytesHeard() const { return heard_; }
    std::int64_t bytesSaid() const { return said_; }
    bool hasAxis(int axis) const;

private:
    void tick(double dt);

    SimOptions options_;
    std::int64_t now_ = 0;
    std::int64_t carry_ = 0;
    std::int64_t heard_ = 0;
    std::int64_t said_ = 0;
    BenchInputs bench_;
    SettingsStore settings_;
    KdxFraming framing_;
    ProgramStore programs_;
    KdxMotion motion_;
    ProgramRunner runner_;
    KdxLanguage language_;
};

} // namespace korval::sim
