#pragma once
// "Axis Positions": where each of the four axes stands, in steps and in the user's units,
// refreshed while anything moves and silent otherwise. It asks only the driver's position
// read-out, and keeps off the line while a diagnostic or a troubleshooter holds it.
#include "core/ui/FormBase.h"
#include "motion/PositionWatch.h"

#include <array>

class QLabel;
class QTimer;

namespace korval {

class FrmKdxToolAxisPositions final : public FormBase {
    Q_OBJECT
public:
    static constexpr int RefreshMilliseconds = 250;

    FrmKdxToolAxisPositions();
    ~FrmKdxToolAxisPositions() override;

    QLabel* LblSteps(int axis) const { return steps_.at(static_cast<std::size_t>(axis - 1)); }
    QLabel* LblUnits(int axis) const { return units_.at(static_cast<std::size_t>(axis - 1)); }
    // One round of the timer: reads the positions when the watch says so.
    void TmrRefresh_Timer();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showReadings();

    PositionWatch watch_;
    AxisReadings readings_{};
    QTimer* timer_;
    std::array<QLabel*, 4> steps_{};
    std::array<QLabel*, 4> units_{};
    std::array<int, 9> subscriptions_{};
};

} // namespace korval
