#pragma once
// What the controller makes of each item: immediate commands, queries, set commands, jogs and
// the commands that go into the current program.
#include <string>

#include "sim/BenchInputs.h"
#include "sim/KdxFraming.h"
#include "sim/KdxMotion.h"
#include "sim/ProgramRunner.h"
#include "sim/ProgramStore.h"
#include "sim/SettingsStore.h"
#include "sim/SimOptions.h"

namespace korval::sim {

class KdxLanguage {
public:
    KdxLanguage(const SimOptions& options, const BenchInputs& bench, SettingsStore& settings,
                KdxFraming& out, ProgramStore& programs, KdxMotion& motion, ProgramRunner& runner);

    void hear(const KdxFraming::Item& heard);
    std::string statusCode() const;
    bool online() const { return online_; }
    void powerUp() { online_ = true; }

private:
    void immediate(char c);
    void item(const std::string& text);
    // Items that answer at once; false when the text is none of them.
    bool query(const std::string& text);
    // An unknown setting, or one out of range, is dropped; a refused axis answers as a query would.
    void setting(const std::string& text);
    void jog(const std::string& text);
    void programItem(const std::string& text);
    void store(const ProgramCommand& cmd);
    bool refuseAxis(int axis); // true when the axis cannot take the item

    const SimOptions& options_;
    const BenchInputs& bench_;
    SettingsStore& settings_;
    KdxFraming& out_;
    ProgramStore& programs_;
    KdxMotion& motion_;
    ProgramRunner& runner_;
    bool online_ = true;
};

} // namespace korval::sim
