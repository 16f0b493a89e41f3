#pragma once
// The device chooser's check boxes: which boxes a checked box clears, and which device
// windows are shown. The thumbwheel takes the inputs for program selection, so it excludes
// every device; the jog buttons and the digital joystick share their setting words.
#include <array>
#include <string>
#include <vector>

namespace korval {

enum class AttachedDevice { Thumbwheel, AnalogInput, JoystickAnalog, JoystickDigital, JogSpeeds };

class AttachedChecks {
public:
    bool Checked(AttachedDevice device) const { return checked_[index(device)]; }
    // A click that leaves `device` checked or not; checking it clears what it excludes.
    void Click(AttachedDevice device, bool checked);
    // The devices whose windows are shown: the checked ones that have a window of their own
    // (the analog input has none).
    std::vector<AttachedDevice> WindowsShown() const;

private:
    static std::size_t index(AttachedDevice device) { return static_cast<std::size_t>(device); }
    std::array<bool, 5> checked_{};
};

// The virtual name of a device's window for an axis, "FrmKdxToolSetJogButtons2"; the thumbwheel
// has one window for the whole controller, and the analog input none (empty).
std::string DeviceWindowName(AttachedDevice device, int axis);

} // namespace korval
