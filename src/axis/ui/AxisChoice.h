#pragma once
// The "Axis:" row at the top of the device windows: a list of axes 1 to 4 that takes no typing.
class QBoxLayout;
class QComboBox;
class QWidget;

namespace korval {

// Adds the row to `layout` and returns its list, "CmbAxis", with nothing chosen yet.
QComboBox* AddAxisChoice(QWidget& owner, QBoxLayout& layout);

} // namespace korval
