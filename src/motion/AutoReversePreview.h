#pragma once
// What an AutoReverse program will do, seen before it goes to a controller: generated as the
// test button generates it, with the virtual controller of the preview in the place of the real
// one (a start from the current location zeroes that one), then followed through time.
#include "AutoReverseSettings.h"

#include "link/ClsKdxCommands.h"
#include "sim/PreviewBench.h"

#include <string>
#include <vector>

namespace korval {

struct AutoReversePreview {
    std::string program;               // the text the preview ran
    std::vector<std::string> messages; // "title: text" of each box the generation showed
    sim::PreviewResult result;
};

AutoReversePreview PreviewAutoReverse(const AutoReverseSettings& settings, const Formatter& format,
                                      const sim::PreviewOptions& options);

} // namespace korval
