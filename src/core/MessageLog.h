#pragma once
// Message boxes with nobody to click them: each message is handed on as its title and text and
// answered OK; a file dialog is cancelled and the input box left empty. For the command line,
// which prints what a window would show, and for a generation made only to be looked at.
#include "Prompts.h"

#include <functional>

namespace korval {

class MessageLog final : public Prompts {
public:
    using Handler = std::function<void(const std::string& title, const std::string& text)>;
    explicit MessageLog(Handler handler) : handler_(std::move(handler)) {}

    Answer Message(const std::string& text, const std::string& title, Icon, Buttons) override {
        handler_(title, text);
        return Answer::Ok;
    }
    std::optional<std::string> OpenFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> SaveFile(const FileDialog&) override { return std::nullopt; }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }

private:
    Handler handler_;
};

} // namespace korval
