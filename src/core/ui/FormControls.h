#pragma once
// Services on the controls of loaded windows: a control reached by its window's name, or the
// virtual name of one of a window's four copies, and list boxes that take no typed text.
#include <QString>

#include <string_view>

class QComboBox;

namespace korval {

class FormControls {
public:
    // Switches off or on the control named `control` of the loaded window whose name or virtual
    // name is `form`; false when there is no such window or control.
    static bool DisableObj(std::string_view form, const QString& control);
    static bool EnableObj(std::string_view form, const QString& control);

    // Typed characters no longer pick a row, in the box or in its open list; the arrow keys
    // still move through the rows.
    static void TakeNoTypedText(QComboBox& combo);
};

} // namespace korval
