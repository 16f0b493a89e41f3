#pragma once
// The controller marks its error status codes with one lead byte ("Ë" in its code page) before
// the error's letter: "ËB" is a bus error. Driver, status display and virtual controller all
// build and read those codes from this one constant.
#include <string>

namespace korval {

inline constexpr char StatusLead = '\xCB';

// The two-character status code of an error letter.
inline std::string ErrorCode(char letter) {
    return std::string{StatusLead, letter};
}

} // namespace korval
