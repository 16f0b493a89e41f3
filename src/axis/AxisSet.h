#pragma once
// The four axis records, Axis1 to Axis4, created once with the driver facade and kept for the
// whole run by whoever owns the program's services.
#include "ClsKdxAxis.h"

namespace korval {

class AxisSet {
public:
    static constexpr int Count = 4;

    explicit AxisSet(ClsDriverKdx& driver)
        : Axis1(driver), Axis2(driver), Axis3(driver), Axis4(driver) {}

    ClsKdxAxis Axis1;
    ClsKdxAxis Axis2;
    ClsKdxAxis Axis3;
    ClsKdxAxis Axis4;

    // The record of axis 1..4; null for any other number.
    ClsKdxAxis* ByNumber(int axis) {
        switch (axis) {
        case 1:
            return &Axis1;
        case 2:
            return &Axis2;
        case 3:
            return &Axis3;
        case 4:
            return &Axis4;
        default:
            return nullptr;
        }
    }
};

} // namespace korval
