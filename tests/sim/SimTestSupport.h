#pragma once
// A chain with a few helpers to talk to it the way the host does.
#include <string>

#include "sim/KdxChain.h"

namespace korval::sim::test {

inline const std::string Err = "\xCB";

// Sends text and returns what came back at once.
inline std::string ask(KdxChain& chain, const std::string& text) {
    chain.takeOutput();
    chain.receive(text);
    return chain.takeOutput();
}

inline KdxChain chainWith(const std::string& optionText) {
    SimOptions options;
    std::string error;
    ParseSimOptions(optionText, options, error);
    return KdxChain(options);
}

} // namespace korval::sim::test
