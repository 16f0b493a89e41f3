#pragma once
// Prompts answered by script: every box is recorded as "title: text"; each Yes/No question
// takes the next scripted answer, and a question with none left fails the test.
#include "core/Prompts.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace korval::testing {

struct ScriptedPrompts final : Prompts {
    std::deque<Answer> answers;
    std::vector<std::string> shown;
    std::vector<Icon> icons;
    std::deque<std::string> files;
    std::vector<FileDialog> dialogs;

    ScriptedPrompts& answer(std::initializer_list<Answer> list) {
        answers.insert(answers.end(), list);
        return *this;
    }
    Answer Message(const std::string& text, const std::string& title, Icon icon,
                   Buttons buttons) override {
        shown.push_back(title + ": " + text);
        icons.push_back(icon);
        if (buttons == Buttons::Ok) {
            return Answer::Ok;
        }
        if (answers.empty()) {
            ADD_FAILURE() << "an unscripted question: " << text;
            return Answer::No;
        }
        const auto a = answers.front();
        answers.pop_front();
        return a;
    }
    // Each open dialogue as "open TITLE", answered by the next of `files` (cancelled when none).
    std::optional<std::string> OpenFile(const FileDialog& d) override {
        shown.push_back("open " + d.title);
        dialogs.push_back(d);
        if (files.empty()) {
            return std::nullopt;
        }
        const auto f = files.front();
        files.pop_front();
        return f;
    }
    std::optional<std::string> SaveFile(const FileDialog&) override { return std::nullopt; }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }
};

inline constexpr auto Yes = Prompts::Answer::Yes;
inline constexpr auto No = Prompts::Answer::No;

} // namespace korval::testing
