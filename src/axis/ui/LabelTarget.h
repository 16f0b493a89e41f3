#pragma once
// A label whose caption a rule writes, as it writes any text target.
#include "core/TextTarget.h"

#include "core/qt/Latin1.h"

#include <QLabel>

namespace korval {

class LabelTarget final : public TextTarget {
public:
    explicit LabelTarget(QLabel& label) : label_(label) {}
    void SetText(const std::string& text) override { label_.setText(Latin1(text)); }

private:
    QLabel& label_;
};

} // namespace korval
