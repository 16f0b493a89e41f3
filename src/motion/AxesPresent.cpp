#include "AxesPresent.h"

namespace korval {

AxesPresent::AxesPresent(int count) {
    for (int motor = 1; motor <= count && motor <= 4; ++motor) {
        Add(motor);
    }
}

AxesPresent AxesPresent::Of(std::initializer_list<int> motors) {
    AxesPresent present;
    for (const int motor : motors) {
        present.Add(motor);
    }
    return present;
}

bool AxesPresent::Has(std::int32_t motor) const {
    return motor >= 1 && motor <= 4 && motors_.test(static_cast<std::size_t>(motor - 1));
}

void AxesPresent::Add(std::int32_t motor) {
    if (motor >= 1 && motor <= 4) {
        motors_.set(static_cast<std::size_t>(motor - 1));
    }
}

AxesPresent ProbeAxes(ClsDriverKdx& kdx, std::span<const std::int32_t> motors) {
    AxesPresent present;
    for (const auto motor : motors) {
        // The driver gives -1 for a refusal ("J", a bus error) and for silence alike.
        if (AxesPresent(4).Has(motor) && kdx.GetMotorSetting(motor) >= 0) {
            present.Add(motor);
        }
    }
    return present;
}

} // namespace korval
