#pragma once
// The AutoReverse generator over the project's own command formatter, with message boxes that
// record what they would show and a controller that records what it is asked.
#include "motion/AutoReverseGenerator.h"

#include "formatter/CommandFormatter.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace korval::testing {

struct RecordedPrompts final : Prompts {
    std::vector<std::string> shown;    // "title: text"
    std::optional<std::string> saveAs; // the save dialog's answer; none is a cancel
    std::vector<FileDialog> dialogs;

    Answer Message(const std::string& text, const std::string& title, Icon, Buttons) override {
        shown.push_back(title + ": " + text);
        return Answer::Ok;
    }
    std::optional<std::string> OpenFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> SaveFile(const FileDialog& d) override {
        dialogs.push_back(d);
        return saveAs;
    }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }
};

struct RecordedController final : AutoReverseController {
    std::vector<std::string> calls;
    std::string position = "0";
    int visibleFor = 1000; // how many more visibility tests find the window shown

    bool Visible() override { return visibleFor-- > 0; }
    void SendCommandsToPort(const std::string& commands) override {
        calls.push_back("send " + commands);
    }
    void RunKdxProgramAndWaitForFinish(std::int32_t limit) override {
        calls.push_back("run " + std::to_string(limit));
    }
    void WaitForCharacter(const std::string& c, std::int32_t limit) override {
        calls.push_back("wait " + c + " " + std::to_string(limit));
    }
    std::string GetCurrentMotorPosition(std::int32_t motor) override {
        calls.push_back("position " + std::to_string(motor));
        return position;
    }
};

inline std::string ProjectFormatter(const std::string& text, int flag) {
    return formatCommands(text, flag == 1);
}

// "F, PM-0, R" as the controller gets it: one command a line, CR line ends.
inline std::string Program(const std::string& commands) {
    std::istringstream words(commands);
    std::string out;
    for (std::string word; words >> word;) {
        out += word + "\r";
    }
    return out;
}

struct AutoReverseFixture : ::testing::Test {
    RecordedPrompts prompts;
    RecordedController kdx;
    AutoReverseGenerator gen{prompts, ProjectFormatter};
};

} // namespace korval::testing
