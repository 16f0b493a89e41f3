// calc-motor, attach: the motor settings calculator and the attached devices' settings.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CommandTable.h"

#include "axis/ClsKdxMotorCalc.h"
#include "axis/DeviceSettings.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <ostream>
#include <vector>

namespace korval::cli {

namespace {

std::optional<int> wholeNumber(const std::string& text, int low, int high) {
    int n = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (error != std::errc() || end != text.data() + text.size() || n < low || n > high) {
        return std::nullopt;
    }
    return n;
}

// "--name VALUE" pairs and bare "--flag"s, from `first` on; null on anything else.
struct Options {
    std::map<std::string, std::string> values;
    std::map<std::string, bool> flags;
};
std::optional<Options> readOptions(const std::vector<std::string>& args, std::size_t first,
                                   std::initializer_list<const char*> valued,
                                   std::initializer_list<const char*> flags) {
    Options o;
    for (std::size_t i = first; i < args.size(); ++i) {
        const auto& a = args[i];
        if (std::find(valued.begin(), valued.end(), a) != valued.end() && i + 1 < args.size()) {
            o.values[a] = args[++i];
        } else if (std::find(flags.begin(), flags.end(), a) != flags.end()) {
            o.flags[a] = true;
        } else {
            return std::nullopt;
        }
    }
    return o;
}

int calcMotor(CliRun& r) {
    const auto o = readOptions(r.options.args, 0, {"--wires", "--current", "--inductance"}, {});
    if (!o || o->values.size() != 3) {
        return Fail(r.err, "calc-motor takes --wires W --current I --inductance L", ExitUsage);
    }
    const auto wires = wholeNumber(o->values.at("--wires"), -32768, 32767);
    if (!wires) {
        return Fail(r.err, "--wires takes a whole number: 6, 8, or 0 for any other", ExitUsage);
    }
    ClsKdxMotorCalc calc;
    const auto shown = calc.CalcFromText(static_cast<std::int16_t>(*wires),
                                         o->values.at("--current"), o->values.at("--inductance"));
    r.out << shown.value_or("") << "\n";
    return ExitOk;
}

// The settings a device window would send, from the same controls as options; a usage message
// when they can't be read.
struct Plan {
    std::vector<std::string> settings;
    std::string problem;
};
Plan sends(std::vector<std::string> settings) {
    return {std::move(settings), {}};
}
Plan refused(std::string problem) {
    return {{}, std::move(problem)};
} // namespace

Plan speedsPlan(int axis, const std::string& device, const Options& o) {
    const bool disabled = o.flags.contains("--disable");
    const auto text = [&o](const char* name) {
        return o.values.contains(name) ? o.values.at(name) : std::string();
    };
    if (device == "jog") {
        if (!disabled && !o.values.contains("--velocity")) {
            return refused("attach jog takes --velocity V, or --disable");
        }
        auto velocity = text("--velocity");
        return sends({JogButtonsSetting(axis, velocity, disabled)});
    }
    if (!disabled && (!o.values.contains("--primary") || !o.values.contains("--secondary"))) {
        return refused("attach digital takes --primary V --secondary V, or --disable");
    }
    auto primary = text("--primary");
    auto secondary = text("--secondary");
    const auto setting = DigitalJoystickSetting(axis, primary, secondary, disabled);
    if (!setting) {
        return refused(std::string(SpeedErrorTitle) + ": " + SpeedErrorText);
    }
    return sends({*setting});
}

Plan analogPlan(int axis, const Options& o) {
    int rows[] = {AnalogPrimaryStartRow, AnalogSecondaryStartRow};
    const char* names[] = {"--primary", "--secondary"};
    for (int i = 0; i < 2; ++i) {
        if (o.values.contains(names[i])) {
            const auto row = wholeNumber(o.values.at(names[i]), 0, 24);
            if (!row) {
                return refused(std::string(names[i]) + " takes a row from 0 to 24");
            }
            rows[i] = *row;
        }
    }
    auto deadBand = o.values.contains("--deadband") ? o.values.at("--deadband")
                                                    : std::string(AnalogDeadBandStart);
    return sends(AnalogJoystickSettings(axis, deadBand, rows[0], SecondarySpeedRow(rows[1])));
}

Plan attachPlan(const std::vector<std::string>& args) {
    const char* usage = "attach takes AXIS (1 to 4) and jog, digital, analog or thumbwheel "
                        "(korval-cli attach --help)";
    if (args.size() < 2) {
        return refused(usage);
    }
    const auto axis = wholeNumber(args[0], 1, 4);
    const auto& device = args[1];
    if (!axis) {
        return refused(usage);
    }
    if (device == "thumbwheel") {
        if (args.size() != 3 || (args[2] != "on" && args[2] != "off")) {
            return refused("attach AXIS thumbwheel takes on or off");
        }
        return sends({ThumbwheelSetting(args[2] == "on")});
    }
    const auto o =
        device == "analog"
            ? readOptions(args, 2, {"--primary", "--secondary", "--deadband"}, {})
            : readOptions(args, 2, {"--velocity", "--primary", "--secondary"}, {"--disable"});
    if (!o || (device != "jog" && device != "digital" && device != "analog")) {
        return refused(usage);
    }
    return device == "analog" ? analogPlan(*axis, *o) : speedsPlan(*axis, device, *o);
}

int attach(CliRun& r) {
    const auto plan = attachPlan(r.options.args);
    if (!plan.problem.empty()) {
        return Fail(r.err, plan.problem, ExitUsage);
    }
    for (const auto& setting : plan.settings) {
        r.out << setting << "\n";
    }
    if (!SendSettings(r.session->kdx(), plan.settings)) {
        return Fail(r.err, SettingConfirmation(false), ExitNoAnswer);
    }
    return ExitOk;
}

const CliCommand Commands[] = {
    {"calc-motor",
     "calc-motor --wires W --current I --inductance L\n"
     "                       the motor setting for a motor of W wires (6, 8, or 0 for any\n"
     "                       other), I amperes and L millihenry; an empty line where the\n"
     "                       calculator leaves its result as it was",
     Needs::Nothing, calcMotor},
    {"attach",
     "attach AXIS jog --velocity V [--disable]\n"
     "  attach AXIS digital --primary V --secondary V [--disable]\n"
     "  attach AXIS analog [--primary ROW] [--secondary ROW] [--deadband D]\n"
     "  attach AXIS thumbwheel on|off\n"
     "                       store a device's speeds as its window does (ROW 0 to 24 in\n"
     "                       steps of 250 per second, 0 disables); print what was sent;\n"
     "                       exit 1 when the KDX does not confirm it",
     Needs::Online, attach},
};

} // namespace

std::span<const CliCommand> DeviceCommands() {
    return Commands;
}

} // namespace korval::cli
