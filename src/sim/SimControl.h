#pragma once
// The bench around a virtual controller, driven by lines of text: what kdx-sim reads on its
// standard input, so that a person or a test can press switches and inject faults.
#include <string>

#include "sim/KdxChain.h"

namespace korval::sim {

enum class ControlResult { Done, Bad, HangUp, Quit };

// Acts on one control line; `answer` gets what to print back (a read-out, or why the line was
// refused).
ControlResult ApplyControl(KdxChain& chain, const std::string& line, std::string& answer);

// The control commands, one to a line, for --help and the "help" command.
const char* ControlHelp();

} // namespace korval::sim
