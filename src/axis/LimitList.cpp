#include "LimitList.h"

namespace korval {

std::vector<std::string> LimitRows() {
    return {"Tavrin Slide",
            "Tavrin Rotary Table",
            "Auto-Detect",
            "None",
            "Non-Standard Slide (Normally Closed)",
            "Non-Standard Slide (Normally Open)",
            "Non-Standard Rotary Table (Normally Closed)",
            "Non-Standard Rotary Table (Normally Open)"};
}

int ListIndexToLimitValue(int row) {
    switch (row) {
    case 0:
    case 4:
        return 1;
    case 1:
    case 7:
        return -2;
    case 3:
    case 5:
        return -1;
    case 6:
        return 2;
    default:
        return 0;
    }
}

std::optional<int> LimitValueToListIndex(int value) {
    switch (value) {
    case -2:
        return 1;
    case -1:
        return 3;
    case 0:
        return 2;
    case 1:
        return 0;
    case 2:
        return 6;
    default:
        return std::nullopt;
    }
}

} // namespace korval
