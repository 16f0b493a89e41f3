#pragma once
// How a key typed into one of the program's text boxes changes its text: the program applies
// keys itself rather than leaving them to the control. And which typed characters a list box
// lets through.
#include <string>

namespace korval {

struct TextBoxState {
    std::string text;
    int selStart = 0;  // the caret
    int selLength = 0; // 0: no selection
};

class ClsFormControl {
public:
    static constexpr int Backspace = 8;
    static constexpr int Enter = 13;

    // Codes 37 to 40 (the arrows) and Enter change nothing; backspace removes the character
    // before the caret, or the selection; any other code is typed at the caret, or over the
    // selection. The caret never goes below 0.
    static TextBoxState TextBoxKeyPress(TextBoxState box, int key);

    // A list box takes no typed text: of the characters typed at it only codes 37 to 40 pass.
    // Keys that type nothing (the arrows among them) are not characters and always reach it.
    static bool ComboKeyPress(int character);
};

} // namespace korval
