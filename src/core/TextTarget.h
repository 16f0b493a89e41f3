#pragma once
// Where a rule shows its text: a text box, a result label, a box of an information panel. The
// axis and the diagnostic rules both write through it, so one definition serves every room.
#include <string>

namespace korval {

class TextTarget {
public:
    virtual ~TextTarget() = default;
    virtual void SetText(const std::string& text) = 0;
};

} // namespace korval
