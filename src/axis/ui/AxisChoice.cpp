#include "AxisChoice.h"

#include "core/ui/FormControls.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace korval {

QComboBox* AddAxisChoice(QWidget& owner, QBoxLayout& layout) {
    auto* row = new QHBoxLayout();
    auto* label = new QLabel("Axis:", &owner);
    label->setObjectName("LblAxis");
    auto* axis = new QComboBox(&owner);
    axis->setObjectName("CmbAxis");
    axis->addItems({"1", "2", "3", "4"});
    FormControls::TakeNoTypedText(*axis);
    row->addWidget(label);
    row->addWidget(axis);
    row->addStretch(1);
    layout.addLayout(row);
    return axis;
}

} // namespace korval
