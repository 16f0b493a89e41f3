#pragma once
// The user's dialogues, as Qt shows them.
#include "core/Prompts.h"

#include <QString>

#include <functional>

class QWidget;

namespace korval {

class QtPrompts final : public Prompts {
public:
    // `parent` gives the window the dialogues belong to: the main window once it exists.
    explicit QtPrompts(std::function<QWidget*()> parent) : parent_(std::move(parent)) {}
    Answer Message(const std::string& text, const std::string& title, Icon icon,
                   Buttons buttons) override;
    std::optional<std::string> OpenFile(const FileDialog& dialog) override;
    std::optional<std::string> SaveFile(const FileDialog& dialog) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;

private:
    std::optional<std::string> fileDialog(const FileDialog& dialog, bool save);
    std::function<QWidget*()> parent_;
};

// "Text Files (*.txt)|*.txt|" as a Qt name filter: "Text Files (*.txt)".
QString QtFilter(const std::string& filter);

} // namespace korval
