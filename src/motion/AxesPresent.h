#pragma once
// Which of the motors 1 to 4 the controller drives. A chain need not be filled from the first
// axis on: two single-motor controllers drive axes 1 and 3.
#include "link/ClsDriverKdx.h"

#include <bitset>
#include <cstdint>
#include <initializer_list>
#include <span>

namespace korval {

class AxesPresent {
public:
    AxesPresent() = default;
    // A chain of `count` axes from axis 1 on; a plain count reads as this.
    AxesPresent(int count);
    static AxesPresent Of(std::initializer_list<int> motors);

    bool Has(std::int32_t motor) const;
    void Add(std::int32_t motor);

private:
    std::bitset<4> motors_;
};

// Asks the controller, axis by axis, for each of `motors`: an axis that keeps a motor setting is
// there; one refused or unanswered is not. Only queries go out.
AxesPresent ProbeAxes(ClsDriverKdx& kdx, std::span<const std::int32_t> motors);

} // namespace korval
