#pragma once
// Dialogues answered from a script. Every box is recorded in `asked` as "title: text", every
// file dialogue as "open TITLE" or "save TITLE", every input box as "input TITLE: prompt". A
// Yes/No question takes the next scripted answer, and one with none left fails the test; a file
// dialogue with no answer left is cancelled.
#include "core/Prompts.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace korval::testing {

struct ScriptedPrompts : Prompts {
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> files;
    std::deque<std::optional<std::string>> saves;
    std::deque<std::string> inputs;
    std::vector<std::string> asked;
    std::vector<Icon> icons;
    std::vector<FileDialog> dialogs; // every file dialogue as it was asked

    ScriptedPrompts& answer(std::initializer_list<Answer> list) {
        answers.insert(answers.end(), list);
        return *this;
    }
    Answer Message(const std::string& text, const std::string& title, Icon icon,
                   Buttons buttons) override {
        asked.push_back(title + ": " + text);
        icons.push_back(icon);
        if (buttons == Buttons::Ok) {
            return Answer::Ok;
        }
        if (answers.empty()) {
            ADD_FAILURE() << "an unscripted question: " << text;
            return Answer::No;
        }
        return next(answers);
    }
    std::optional<std::string> OpenFile(const FileDialog& d) override {
        asked.push_back("open " + d.title);
        dialogs.push_back(d);
        return files.empty() ? std::nullopt : next(files);
    }
    std::optional<std::string> SaveFile(const FileDialog& d) override {
        asked.push_back("save " + d.title);
        dialogs.push_back(d);
        return saves.empty() ? std::nullopt : next(saves);
    }
    std::string InputBox(const std::string& prompt, const std::string& title) override {
        asked.push_back("input " + title + ": " + prompt);
        return inputs.empty() ? std::string() : next(inputs);
    }

private:
    template <typename T> static T next(std::deque<T>& queue) {
        auto front = std::move(queue.front());
        queue.pop_front();
        return front;
    }
};

inline constexpr auto Yes = Prompts::Answer::Yes;
inline constexpr auto No = Prompts::Answer::No;

} // namespace korval::testing
