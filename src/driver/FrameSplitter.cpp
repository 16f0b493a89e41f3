#include "FrameSplitter.h"

namespace korval::driver {

FrameSplitter::Result FrameSplitter::feed(std::string_view bytes) {
    Result out;
    for (const char c : bytes) {
        if (!inFrame_) {
            if (c == '{') {
                inFrame_ = true;
                frame_.clear();
            } else {
                out.stream += c;
            }
        } else if (c == '}') {
            inFrame_ = false;
            out.frames.push_back(std::move(frame_));
            frame_.clear();
        } else if (frame_.size() < MaxFrame) {
            frame_ += c;
        } else {
            out.stream += '{' + frame_ + c; // not a frame after all
            inFrame_ = false;
            frame_.clear();
        }
    }
    return out;
}

void FrameSplitter::reset() {
    inFrame_ = false;
    frame_.clear();
}

} // namespace korval::driver
