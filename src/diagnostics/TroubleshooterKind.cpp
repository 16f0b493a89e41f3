#include "TroubleshooterKind.h"

#include "CommandLanguage.h"

namespace korval {

namespace {

const TroubleshooterFace Limits = {
    "Troubleshoot Limits",
    "Limit Input States",
    "Limit input states (red = switch hit = 0)",
    {"Limit 1 Negative", "Limit 1 Positive", "Limit 2 Negative", "Limit 2 Positive",
     "Limit 3 Negative", "Limit 3 Positive", "Limit 4 Negative", "Limit 4 Positive"},
};

const TroubleshooterFace Inputs = {
    "Troubleshoot User Inputs",
    "Active low - LED lit",
    "Current Input/Output State (Green = Triggered = 1)",
    {"Jog 1 Negative", "Jog 1 Positive", "Jog 2 Negative", "Jog 2 Positive", "Input 1", "Input 2",
     "Input 3", "Input 4 / Stop Input"},
};

const TroubleshooterFace Outputs = {
    "Troubleshoot User Outputs",
    "Active high - LED lit",
    "Current Input/Output State (Green = Triggered = 1)",
    {"Output 1", "Output 2", "Output 3 (Special Option)", "Output 4 (Special Option)", "Not Used",
     "Not Used", "Not Used", "Not Used"},
};

const TroubleshooterFace Multifunction = {
    "Multifunction User I-O",
    "Multi-Function User Input Output Mode",
    "User Input/Output Mode settings (Green = Enabled = 1)",
    {"Run Input Enabled / Disabled (0=disabled)",
     "Stop Input (Input4) Enabled/Disabled (0=disabled)",
     "Input 3 Interrupt User Waits Enabled/Disabled (0=disabled)",
     "Low Valid Time for Run and Input 1 (1=100usec, 0=1ms)",
     "Stop Input (Input4) Decel/Hard-Stop (1=Hard-Stop, 0=Decel to Stop)",
     "Jump to Program 4 after Stop Input (Input 4) (0=disable)",
     "Program # Select with Inputs 2 and 3 (0=disable) (bit 2 will be 0)",
     "Capture Motor Position on Input 4 trigger (0=disable) (bit 1 will be 0)"},
};

} // namespace

const TroubleshooterFace& FaceOf(TroubleshooterKind kind) {
    switch (kind) {
    case TroubleshooterKind::Limits:
        return Limits;
    case TroubleshooterKind::Inputs:
        return Inputs;
    case TroubleshooterKind::Outputs:
        return Outputs;
    case TroubleshooterKind::MultifunctionIO:
        break;
    }
    return Multifunction;
}

TroubleshooterQuery QueryOf(TroubleshooterKind kind) {
    switch (kind) {
    case TroubleshooterKind::Inputs:
        // Inputs are active low: a 0 bit is a pressed switch, and lights its lamp.
        return {kdx::PollInputMask(), "~", false, true, LampPicture::Lit};
    case TroubleshooterKind::Outputs:
        return {kdx::PollOutputMask(), "$", true, true, LampPicture::Dim};
    case TroubleshooterKind::MultifunctionIO:
        return {kdx::GetMultifunctionInputs(), "getI", false, false, LampPicture::Dim};
    case TroubleshooterKind::Limits:
        break;
    }
    // Asked by the driver's limit state, which sends "?" and takes out "^" and "?" itself.
    return {"?", "?", true, true, LampPicture::Dim};
}

std::optional<TroubleshooterKind> TroubleshooterNamed(std::string_view name) {
    if (name == "limits") {
        return TroubleshooterKind::Limits;
    }
    if (name == "inputs") {
        return TroubleshooterKind::Inputs;
    }
    if (name == "outputs") {
        return TroubleshooterKind::Outputs;
    }
    if (name == "multifunction") {
        return TroubleshooterKind::MultifunctionIO;
    }
    return std::nullopt;
}

} // namespace korval
