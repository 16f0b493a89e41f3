#pragma once
// Builders of the motion windows' controls, each under its system name.
#include <QString>

class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace korval {

QLabel* NamedLabel(const QString& name, const QString& text, QWidget* parent);
QLineEdit* NamedBox(const QString& name, const QString& text, QWidget* parent);
// A frame of motor options OptMotor{first}..OptMotor{last} captioned "Motor N"; the first is
// selected.
QGroupBox* MotorFrame(const QString& name, const QString& caption, int first, int last,
                      QWidget* parent);
// "Velocity:" [box] "Steps / Sec" as one row of a grid.
void AddBoxRow(QGridLayout& grid, int row, QLabel* before, QLineEdit* box, QLabel* after);

} // namespace korval
