#include "AttachedChoice.h"

namespace korval {

namespace {

std::vector<AttachedDevice> excludedBy(AttachedDevice device) {
    using D = AttachedDevice;
    switch (device) {
    case D::Thumbwheel:
        return {D::JogSpeeds, D::JoystickDigital, D::JoystickAnalog, D::AnalogInput};
    case D::AnalogInput:
    case D::JoystickAnalog:
        return {D::Thumbwheel};
    case D::JoystickDigital:
        return {D::Thumbwheel, D::JogSpeeds};
    case D::JogSpeeds:
        return {D::Thumbwheel, D::JoystickDigital};
    }
    return {};
}

} // namespace

void AttachedChecks::Click(AttachedDevice device, bool checked) {
    checked_[index(device)] = checked;
    if (checked) {
        for (const auto other : excludedBy(device)) {
            checked_[index(other)] = false;
        }
    }
}

std::vector<AttachedDevice> AttachedChecks::WindowsShown() const {
    std::vector<AttachedDevice> shown;
    for (const auto device : {AttachedDevice::JogSpeeds, AttachedDevice::JoystickDigital,
                              AttachedDevice::JoystickAnalog, AttachedDevice::Thumbwheel}) {
        if (Checked(device)) {
            shown.push_back(device);
        }
    }
    return shown;
}

std::string DeviceWindowName(AttachedDevice device, int axis) {
    const auto perAxis = [axis](const char* name) { return name + std::to_string(axis); };
    switch (device) {
    case AttachedDevice::Thumbwheel:
        return "FrmKdxToolSetThumbwheel";
    case AttachedDevice::AnalogInput:
        return "";
    case AttachedDevice::JoystickAnalog:
        return perAxis("FrmKdxToolSetJoystickAnalog");
    case AttachedDevice::JoystickDigital:
        return perAxis("FrmKdxToolSetJoystickDigital");
    case AttachedDevice::JogSpeeds:
        return perAxis("FrmKdxToolSetJogButtons");
    }
    return "";
}

} // namespace korval
