#pragma once
// The lists of the axis windows, filled from the rules' rows.
#include "axis/MotorList.h"

#include <QStringList>

#include <string>
#include <vector>

class QComboBox;

namespace korval {

QStringList ListRows(const std::vector<std::string>& rows);

// The models of a make, with the make's tool tip; the list's own handler does not run.
void FillMotorList(QComboBox& box, MotorMake make);

} // namespace korval
