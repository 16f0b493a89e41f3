#pragma once
// The program's dialogues on a terminal: a box is printed, a question takes the next answer
// given on the command line, or is put to the user when one sits at the terminal.
#include "core/Prompts.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace korval::cli {

class TerminalPrompts final : public Prompts {
public:
    // `interactive`: questions left without a given answer are read from `in`.
    TerminalPrompts(std::vector<Answer> answers, bool interactive, std::istream& in,
                    std::ostream& shown);

    Answer Message(const std::string& text, const std::string& title, Icon icon,
                   Buttons buttons) override;
    std::optional<std::string> OpenFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> SaveFile(const FileDialog&) override { return std::nullopt; }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }

    // The first question that found no answer and was taken as No; empty when there was none.
    const std::string& Unanswered() const { return unanswered_; }

private:
    Answer ask(const std::string& question);

    std::vector<Answer> answers_;
    std::size_t next_ = 0;
    bool interactive_;
    std::istream& in_;
    std::ostream& shown_;
    std::string unanswered_;
};

// "yes" or "no" as an answer; false for anything else.
bool ReadAnswer(const std::string& word, Prompts::Answer& answer);

} // namespace korval::cli
