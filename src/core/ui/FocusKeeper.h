#pragma once
#include <QPointer>
#include <QWidget>

namespace korval {

// Saves the focus and the caret of the field the user types in, and puts them back: picture
// changes and nested events may move the focus away meanwhile.
class FocusKeeper {
public:
    FocusKeeper();
    ~FocusKeeper();

private:
    QPointer<QWidget> window_;
    QPointer<QWidget> control_;
    int caret_ = -1;
};

} // namespace korval
