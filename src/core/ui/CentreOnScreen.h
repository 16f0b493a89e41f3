#pragma once
// Puts a window in the middle of the primary screen's free area.
class QWidget;

namespace korval {

void CentreOnScreen(QWidget& window);

} // namespace korval
