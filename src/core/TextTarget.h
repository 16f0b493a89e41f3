#pragma once
// A control whose text a rule may set directly: a text box or a result label. The axis and the
// diagnostic rules both write through it, so one definition serves every room.
#include <string>

namespace korval {

class TextTarget {
public:
    virtual ~TextTarget() = default;
    virtual void SetText(const std::string& text) = 0;
};

} // namespace korval
