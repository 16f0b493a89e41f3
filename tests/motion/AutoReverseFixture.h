#pragma once
// The AutoReverse generator over the project's own command formatter, with scripted dialogues
// and a controller that records what it is asked.
#include "motion/AutoReverseGenerator.h"

#include "formatter/CommandFormatter.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace korval::testing {

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
    ScriptedPrompts prompts;
    RecordedController kdx;
    AutoReverseGenerator gen{prompts, ProjectFormatter};
};

} // namespace korval::testing
