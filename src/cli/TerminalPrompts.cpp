#include "TerminalPrompts.h"

#include "CliText.h"

#include <istream>
#include <ostream>

namespace korval::cli {

bool ReadAnswer(const std::string& word, Prompts::Answer& answer) {
    if (word == "yes" || word == "y") {
        answer = Prompts::Answer::Yes;
        return true;
    }
    if (word == "no" || word == "n") {
        answer = Prompts::Answer::No;
        return true;
    }
    return false;
}

TerminalPrompts::TerminalPrompts(std::vector<Answer> answers, bool interactive, std::istream& in,
                                 std::ostream& shown)
    : answers_(std::move(answers)), interactive_(interactive), in_(in), shown_(shown) {}

Prompts::Answer TerminalPrompts::Message(const std::string& text, const std::string& title, Icon,
                                         Buttons buttons) {
    const auto box = ForShell(title + ": " + text);
    if (buttons == Buttons::Ok) {
        shown_ << box << "\n";
        return Answer::Ok;
    }
    if (next_ < answers_.size()) {
        const auto given = answers_[next_++];
        shown_ << box << " " << (given == Answer::Yes ? "yes" : "no") << "\n";
        return given;
    }
    return ask(box);
}

Prompts::Answer TerminalPrompts::ask(const std::string& question) {
    std::string line;
    Answer answer = Answer::No;
    while (interactive_) {
        shown_ << question << " [yes/no] " << std::flush;
        if (!std::getline(in_, line)) {
            break;
        }
        if (ReadAnswer(line, answer)) {
            return answer;
        }
    }
    shown_ << question << " (no answer: no)\n";
    if (unanswered_.empty()) {
        unanswered_ = question;
    }
    return Answer::No;
}

} // namespace korval::cli
