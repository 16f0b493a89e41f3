#pragma once
// The model choices of a virtual controller chain, read from "key=value,key=value" text: the
// form that kdx-sim --options and the command line's built-in controller take.
#include <string>

namespace korval::sim {

struct SimOptions {
    std::string arrangement = "2"; // "1", "2", "2+1", "1+2", "1+1", "2+2"
    std::string firmware = "1.22";
    std::string date = "03/14/2005";
    int mode = 2;
    int baud = 9600;
    bool echo = false;         // echo at power-up; "E" and "F" change it afterwards
    int silentAxes = 0;        // bit m-1 set: queries about axis m are never answered
    int unwiredLimits = 0;     // bit m-1 set: axis m has no limit switches
    bool normallyOpen = false; // the kind of limit switch wired (the limit setting's sign)
    long travel = 20000;       // steps from the starting place to each limit switch
    int overTravel = 0;        // the value "O," reads
    int analog = 128;          // analog input at power-up, 0..255
    // Answers its command language alone: the words the driver adds for its own needs (V, X, N,
    // D and H) are unknown to it, as to a controller built from the language's description.
    bool languageOnly = false;
    // A controller slow to answer: each reply starts this late, its characters this far apart
    // (never closer than the line's rate), and paused this long before its middle character.
    int replyDelayMs = 0;
    int charSpacingMs = 0;
    int replyPauseMs = 0;
};

// Parses the option text; on a fault returns false and says why in `error`. Unnamed keys keep
// their defaults, so "" is a KDX-2 at 9600 baud.
bool ParseSimOptions(const std::string& text, SimOptions& options, std::string& error);

// The axes (1..4) an arrangement has: axes 1 and 2 on the first controller, 3 and 4 on the second.
bool ArrangementHasAxis(const std::string& arrangement, int axis);
bool ArrangementHasController(const std::string& arrangement, int controller);

// How the chain meets a query about an axis.
enum class AxisState {
    Present,
    OneMotor,     // its controller drives one motor: "J"
    NoController, // the chain has no controller for it: "ËB"
    Silent,       // no answer at all
};
AxisState StateOfAxis(const SimOptions& options, int axis);

} // namespace korval::sim
