#pragma once
// The four troubleshooters: what each one shows (caption, frame, the eight rows, the note) and
// how it asks. The windows paint these texts, and the command line's watch names its lines
// with the same rows.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korval {

enum class TroubleshooterKind { Limits, Inputs, Outputs, MultifunctionIO };

// The picture a lamp shows.
enum class LampPicture {
    Unset, // as loaded, before the first reading
    Dim,   // PicLedRedDim
    Lit,   // PicLedRed
};

struct TroubleshooterFace {
    const char* caption;
    const char* frameCaption;
    const char* note;
    std::array<const char*, 8> rows; // bit 0 first
};

// How one troubleshooter reads its byte. Limits reads through the driver's limit state instead.
struct TroubleshooterQuery {
    std::string query;
    std::string echo;     // every copy of this is taken out of the reply
    bool clearsFirst;     // the port's waiting characters are dropped before the send
    bool byCode;          // the value is the code of the first character, else the decimal text
    LampPicture zeroLamp; // the picture for a bit of 0; a bit of 1 shows the other one
};

const TroubleshooterFace& FaceOf(TroubleshooterKind kind);
TroubleshooterQuery QueryOf(TroubleshooterKind kind);

// "limits", "inputs", "outputs", "multifunction": the command line's names.
std::optional<TroubleshooterKind> TroubleshooterNamed(std::string_view name);

} // namespace korval
