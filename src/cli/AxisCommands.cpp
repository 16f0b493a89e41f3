// wizard, axis: the axis set-up, for production benches.
#include "CliCommand.h"
#include "CliOptions.h"
#include "CliSession.h"
#include "CommandTable.h"
#include "TerminalPrompts.h"
#include "TerminalWindows.h"

#include <unistd.h>

#include "axis/ArrangementText.h"
#include "axis/ClsKdxAxis.h"
#include "axis/ClsKdxWizard.h"
#include "axis/LimitList.h"
#include "axis/MotorList.h"
#include "core/Numbers.h"

#include <iostream>
#include <optional>

namespace korval::cli {

namespace {

bool atTerminal() {
    return ::isatty(STDIN_FILENO) == 1;
}

// "motor setting 3 (Vexta PK264-03), limit setting 0 (Auto-Detect)", as the lists name them.
std::string settingsText(int motor, int limit) {
    std::string text = "motor setting " + std::to_string(motor);
    if (const auto make = MakeForMotorSetting(motor); make && *make != MotorMake::MotorSetting) {
        text += " (" + MotorMakeRows()[static_cast<std::size_t>(*make)] + " " +
                MotorRows(*make)[static_cast<std::size_t>(motor)] + ")";
    }
    text += ", limit setting " + std::to_string(limit);
    if (const auto row = LimitValueToListIndex(limit)) {
        text += " (" + LimitRows()[static_cast<std::size_t>(*row)] + ")";
    }
    return text;
}

std::optional<int> whole(const std::string& text, int low, int high) {
    if (!IsNumeric(text) || text.find('.') != std::string::npos) {
        return std::nullopt;
    }
    const auto v = ToInt32(Val(text));
    return v && *v >= low && *v <= high ? v : std::nullopt;
}

int wizard(CliRun& r) {
    std::vector<Prompts::Answer> answers;
    const auto& args = r.options.args;
    for (std::size_t i = 0; i < args.size(); ++i) {
        Prompts::Answer answer{};
        if (args[i] != "--answer" || i + 1 == args.size()) {
            return Fail(r.err, "wizard takes only --answer yes|no", ExitUsage);
        }
        if (!ReadAnswer(args[++i], answer)) {
            return Fail(r.err, "--answer takes yes or no", ExitUsage);
        }
        answers.push_back(answer);
    }
    auto& session = *r.session;
    TerminalPrompts prompts(answers, atTerminal(), std::cin, r.err);
    TerminalWindows windows(r.out, r.err);
    ClsKdxWizard wizard(session.kdx(), session.delay(), prompts, windows, windows);
    wizard.RunWizard();

    const auto arrangement = ArrangementText(wizard.ActualCode);
    r.out << "Possible motors: " << wizard.PossibleMotors << "\n"
          << "Arrangement code: " << wizard.ActualCode
          << (arrangement.empty() ? "" : " (" + arrangement + ")") << "\n"
          << "Axis menus on: " << windows.AxesWithMenusOn() << "\n";
    for (const int axis : windows.Visited()) {
        r.out << "Axis " << axis << ": "
              << settingsText(session.kdx().GetMotorSetting(axis),
                              session.kdx().GetLimitSetting(axis))
              << "\n";
    }
    if (!prompts.Unanswered().empty()) {
        return Fail(r.err, "no answer for \"" + prompts.Unanswered() + "\" (give --answer yes|no)",
                    ExitUsage);
    }
    if (wizard.PossibleMotors != 2 && wizard.PossibleMotors != 4) {
        return Fail(r.err, "the controller did not tell how many motors it can drive",
                    ExitNoAnswer);
    }
    return ExitOk;
}

struct AxisRequest {
    int axis = 0;
    std::optional<int> motor;
    std::optional<int> limit;
    bool test = false;
    bool keep = false;
};

// Empty on success, else what is wrong.
std::string readAxisRequest(const std::vector<std::string>& args, AxisRequest& q) {
    if (args.empty() || !whole(args[0], 1, 4)) {
        return "axis takes an axis number from 1 to 4 first";
    }
    q.axis = *whole(args[0], 1, 4);
    for (std::size_t i = 1; i < args.size(); ++i) {
        const bool valued = i + 1 < args.size();
        if (args[i] == "--motor-setting" && valued) {
            // The rows the window offers: a setting of the list is never blank under its own make.
            q.motor = whole(args[++i], 0, MotorSettingCount - 1);
            if (!q.motor || IsBlankMotorRow(MotorMake::MotorSetting, *q.motor)) {
                return "--motor-setting takes a motor setting from 0 to 6";
            }
        } else if (args[i] == "--limit-setting" && valued) {
            q.limit = whole(args[++i], LimitSettingLowest, LimitSettingHighest);
            if (!q.limit || !LimitValueToListIndex(*q.limit)) {
                return "--limit-setting takes a limit setting from -2 to 2";
            }
        } else if (args[i] == "--test") {
            q.test = true;
        } else if (args[i] == "--keep") {
            q.keep = true;
        } else {
            return "axis takes N [--motor-setting S] [--limit-setting L] [--test] [--keep]";
        }
    }
    if (!q.test && (q.motor || q.limit || q.keep)) {
        return "settings are written only by a motor test, as in the window: add --test";
    }
    return {};
}

int axis(CliRun& r) {
    AxisRequest q;
    if (const auto problem = readAxisRequest(r.options.args, q); !problem.empty()) {
        return Fail(r.err, problem, ExitUsage);
    }
    auto& session = *r.session;
    ClsKdxAxis record(session.kdx());
    const int motor = ToInt32(Val(record.GetPrevMotorSetting(q.axis))).value_or(-1);
    const int limit = ToInt32(Val(record.GetPrevLimitSetting(q.axis))).value_or(0);
    if (motor < 0) {
        return Fail(r.err,
                    "axis " + std::to_string(q.axis) + " gives no motor setting: it is not there",
                    ExitNoAnswer);
    }
    r.out << "Axis " << q.axis << ": " << settingsText(motor, limit) << "\n";
    if (!q.test) {
        return ExitOk;
    }
    using A = Prompts::Answer;
    const bool ask = !q.keep && atTerminal();
    TerminalPrompts prompts(q.keep ? std::vector<A>{A::Yes, A::Yes}
                            : ask  ? std::vector<A>{}
                                   : std::vector<A>{A::No},
                            ask, std::cin, r.err);
    TerminalWindows windows(r.out, r.err);
    MotorTest test(session.kdx(), session.delay(), prompts, {});
    const auto result = test.Run(record, q.axis, MotorMake::MotorSetting, q.motor.value_or(motor),
                                 q.limit.value_or(limit), windows);
    switch (result.outcome) {
    case MotorTestOutcome::Kept:
        r.out << "Kept: " << settingsText(q.motor.value_or(motor), q.limit.value_or(limit)) << "\n";
        return ExitOk;
    case MotorTestOutcome::Restored:
        r.out << "Restored: " << settingsText(result.prevMotorSetting, result.prevLimitSetting)
              << "\n";
        return ExitOk;
    case MotorTestOutcome::NotRestored:
        return Fail(r.err, "the original settings could not be restored", ExitNoAnswer);
    case MotorTestOutcome::NotStarted:
        break;
    }
    return Fail(r.err, "the test did not start: nothing was written", ExitNoAnswer);
}

const CliCommand Commands[] = {
    {"wizard",
     "wizard [--answer yes|no ...]\n"
     "                       the set-up wizard's detection: the possible motor count, the\n"
     "                       arrangement code, the axis menus it leaves on and each axis it\n"
     "                       goes through; its questions take the answers in order, or are\n"
     "                       asked when a user sits at the terminal",
     Needs::Online, wizard},
    {"axis",
     "axis N [--motor-setting S] [--limit-setting L] [--test] [--keep]\n"
     "                       print axis N's settings; --test writes S and L, moves the motor\n"
     "                       400 steps out and back and restores the old settings unless\n"
     "                       --keep (or the user at the terminal) keeps them",
     Needs::Online, axis},
};

} // namespace

std::span<const CliCommand> AxisCommands() {
    return Commands;
}

} // namespace korval::cli
