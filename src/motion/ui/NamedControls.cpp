#include "NamedControls.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace korval {

QLabel* NamedLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

QLineEdit* NamedBox(const QString& name, const QString& text, QWidget* parent) {
    auto* box = new QLineEdit(text, parent);
    box->setObjectName(name);
    return box;
}

QGroupBox* MotorFrame(const QString& name, const QString& caption, int first, int last,
                      QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(name);
    auto* row = new QHBoxLayout(frame);
    for (int axis = first; axis <= last; ++axis) {
        auto* option = new QRadioButton(QString("Motor %1").arg(axis), frame);
        option->setObjectName(QString("OptMotor%1").arg(axis));
        option->setChecked(axis == first);
        row->addWidget(option);
    }
    return frame;
}

void AddBoxRow(QGridLayout& grid, int row, QLabel* before, QLineEdit* box, QLabel* after) {
    grid.addWidget(before, row, 0);
    grid.addWidget(box, row, 1);
    grid.addWidget(after, row, 2);
}

} // namespace korval
