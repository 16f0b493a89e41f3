#include "ListBoxes.h"

#include "core/qt/Latin1.h"

#include <QComboBox>

namespace korval {

QStringList ListRows(const std::vector<std::string>& rows) {
    QStringList out;
    for (const auto& row : rows) {
        out << Latin1(row);
    }
    return out;
}

void FillMotorList(QComboBox& box, MotorMake make) {
    const QSignalBlocker quiet(&box);
    box.clear();
    box.addItems(ListRows(MotorRows(make)));
    box.setToolTip(Latin1(MotorRowsTip(make)));
}

} // namespace korval
