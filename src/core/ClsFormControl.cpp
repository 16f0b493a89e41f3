#include "ClsFormControl.h"

#include <algorithm>

namespace korval {

TextBoxState ClsFormControl::TextBoxKeyPress(TextBoxState box, int key) {
    const int size = static_cast<int>(box.text.size());
    const int start = std::clamp(box.selStart, 0, size);
    const int length = std::clamp(box.selLength, 0, size - start);
    if ((key >= 37 && key <= 40) || key == Enter) {
        return box;
    }
    const auto at = static_cast<std::size_t>(start);
    if (length > 0) {
        box.text.erase(at, static_cast<std::size_t>(length)); // the selection goes either way
        box.selStart = start;
        if (key != Backspace) {
            box.text.insert(at, 1, static_cast<char>(key));
            box.selStart = start + 1;
        }
    } else if (key == Backspace) {
        if (start > 0) {
            box.text.erase(at - 1, 1);
        }
        box.selStart = std::max(start - 1, 0);
    } else {
        box.text.insert(at, 1, static_cast<char>(key));
        box.selStart = start + 1;
    }
    box.selLength = 0;
    return box;
}

bool ClsFormControl::ComboKeyPress(int character) {
    return character >= 37 && character <= 40;
}

} // namespace korval
