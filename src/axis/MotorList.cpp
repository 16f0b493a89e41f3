#include "MotorList.h"

namespace korval {

std::vector<std::string> MotorMakeRows() {
    return {"Vexta", "Superior", "Motor Setting"};
}

std::optional<MotorMake> MotorMakeFromRow(int row) {
    if (row < 0 || row > 2) {
        return std::nullopt;
    }
    return static_cast<MotorMake>(row);
}

std::vector<std::string> MotorRows(MotorMake make) {
    switch (make) {
    case MotorMake::Vexta:
        return {"", "PK245-01", "", "PK264-03", "PK266-03", "PK268-03", ""};
    case MotorMake::Superior:
        return {"", "", "M061", "M062", "M063", "M091", "M092"};
    case MotorMake::MotorSetting:
        break;
    }
    return {"0", "1", "2", "3", "4", "5", "6"};
}

std::string MotorRowsTip(MotorMake make) {
    switch (make) {
    case MotorMake::Vexta:
        return "Pick the Vexta motor that most closely matches your motor";
    case MotorMake::Superior:
        return "Pick the Superior motor that most closely matches your motor";
    case MotorMake::MotorSetting:
        break;
    }
    return "Pick the motor setting that most closely matches your motor";
}

bool IsBlankMotorRow(MotorMake make, int row) {
    return row < 0 || row >= MotorSettingCount || MotorRows(make)[row].empty();
}

int FirstMotorRow(MotorMake make) {
    // A fresh guard holds each make's first row, and nothing is a good row to it.
    return MotorRowGuard().Pick(make, -1);
}

std::optional<MotorMake> MakeForMotorSetting(int setting) {
    switch (setting) {
    case 0:
        return MotorMake::MotorSetting;
    case 1:
    case 3:
    case 4:
        return MotorMake::Vexta;
    case 2:
    case 5:
    case 6:
        return MotorMake::Superior;
    default:
        return std::nullopt;
    }
}

int& MotorRowGuard::last(MotorMake make) {
    switch (make) {
    case MotorMake::Vexta:
        return LastVextaIndex;
    case MotorMake::Superior:
        return LastSuperiorIndex;
    case MotorMake::MotorSetting:
        break;
    }
    return LastSettingIndex;
}

int MotorRowGuard::Pick(MotorMake make, int row) {
    if (IsBlankMotorRow(make, row)) {
        return last(make);
    }
    last(make) = row;
    return row;
}

} // namespace korval
