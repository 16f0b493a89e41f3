#pragma once
// Takes the driver's private replies, "{...}", out of the byte stream from the controller. What
// is left is the stream a program reads; a frame may arrive split over several reads.
#include <string>
#include <string_view>
#include <vector>

namespace korval::driver {

class FrameSplitter {
public:
    static constexpr std::size_t MaxFrame = 65536; // a longer "frame" is noise, passed on as is

    struct Result {
        std::string stream;
        std::vector<std::string> frames;
    };
    Result feed(std::string_view bytes);
    void reset();

private:
    bool inFrame_ = false;
    std::string frame_;
};

} // namespace korval::driver
