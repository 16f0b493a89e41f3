#pragma once
// Message boxes, the input box and file dialogs, reached through one interface so that the
// rules that ask the user run in tests with scripted answers.
#include <optional>
#include <string>

namespace korval {

class Prompts {
public:
    enum class Icon { Information, Question, Warning, Critical };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    struct FileDialog {
        std::string title;
        std::string filter; // "Text Files (*.txt)|*.txt|": pairs of description and pattern
        std::string initialFolder;
        std::string fileName;
    };

    virtual ~Prompts() = default;
    virtual Answer Message(const std::string& text, const std::string& title, Icon icon,
                           Buttons buttons) = 0;
    // Empty when cancelled; an empty text when confirmed with no name.
    virtual std::optional<std::string> OpenFile(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> SaveFile(const FileDialog& dialog) = 0;
    // A cancelled prompt gives an empty text.
    virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;
};

} // namespace korval
