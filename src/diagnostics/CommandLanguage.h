#pragma once
// The controller's language as this program speaks it: every command text comes from one of
// these builders, and every reply goes through one of these readers, so no window pastes
// command strings together by itself.
#include <optional>
#include <string>
#include <string_view>

namespace korval::kdx {

// Kill, off line, on line with echo off: leaves the controller idle and ready for a query.
// Sent as it stands, with no comma or CR behind it.
inline constexpr std::string_view QueryPrologue = "K,Q,F";

// Queries. Each ends in the comma that completes it, except "@" and the bare "PM" with CR.
std::string GetFirmwareVersion();                       // "getD0,"
std::string GetFirmwareDate();                          // "getD1,"
std::string GetModeNumber();                            // "getD2,"
std::string GetOperatingMode();                         // "getDM,"
std::string GetMultifunctionInputs();                   // "getI,"
std::string GetDeadBand();                              // "getDA,"
std::string GetPulseWidth();                            // "getPA,"
std::string GetPulseEvery(int motor);                   // getP{m}M,
std::string GetMotorSetting(int motor);                 // getM{m}M,
std::string GetLimitSetting(int motor);                 // getL{m}M,
std::string GetJoystickPrimary(int motor);              // getj{m}M,
std::string GetJoystickSecondary(int motor);            // getJ{m}M,
std::string GetAnalogPrimary(int motor);                // getjA{m}M,
std::string GetAnalogSecondary(int motor);              // getJA{m}M,
std::string GetCurrentProgram();                        // "PM,"
std::string GetCurrentProgramAssociate();               // "PMA,"
std::string GetCurrentProgramBare();                    // "PM" and CR, read back to restore it
std::string ListProgram(int program);                   // PM{n},lst,  (selects it as well)
std::string SelectProgram(int program);                 // ,PM{n},
std::string SelectProgramAsRead(std::string_view kept); // ",PM" + kept + ",", blanks trimmed
std::string GetOverTravelOrBacklash();                  // "O,"
std::string GetAnalogInput();                           // "@"
std::string GetLimitMask();                             // "?,"
std::string GetInputMask();                             // "~,"
std::string GetOutputMask();                            // "$,"

// The troubleshooters' polls, bare and never behind the prologue, so a running program goes on.
std::string PollInputMask();  // "~"
std::string PollOutputMask(); // "$"
// The first firmware that answers "$".
inline constexpr double OutputMaskFirmware = 1.22;

// Settings, stored by the "rsm" that ends each string.
std::string SetJoystickSpeeds(int motor, long primary, long secondary); // C,setj..,setJ..,,rsm
std::string SetAnalogSettings(int motor, long primary, long secondary); // C,setjA..,setJA..,,rsm
std::string SetDeadBand(long value);                                    // setDA{v},rsm
std::string SetMultifunctionInputs(int word);                           // C,setI{v},rsm

// Program building.
std::string Speed(int motor, long stepsPerSecond);         // S{m}M{v},
std::string Index(int motor, long steps);                  // I{m}M{v}, with the sign behind the M
std::string SingleMove(int motor, long speed, long steps); // C,S{m}M{v},I{m}M{d},R

// Reply readers.
std::string WithoutCR(std::string reply);
// A decimal word: CRs removed, then read leniently; an absent reply reads 0.
double ReadWord(const std::string& reply);
// A byte mask: the code of the first character; empty when nothing came, since no bits are known.
std::optional<int> ReadMask(std::string_view reply);
// Each CR made CR LF, as a reply is shown in a text box.
std::string CrToCrLf(std::string text);
// A word as its bits, low bit first, at least eight of them.
std::string WordBits(double value);

// What the reply to "getM3M," says of the motor count: 0 no answer, 1 two motors, 2 four.
int CountCodeFromReply(std::string reply);

// A listing already laid out by the commands formatter, made readable in a text box:
// comments in a column, CR LF line ends, the first column gap before ";M" closed.
std::string ListingForDisplay(std::string formatted);

} // namespace korval::kdx
