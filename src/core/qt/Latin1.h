#pragma once
// The program's text is single-byte; Qt holds QString. These cross between the two.
#include <QString>

#include <string>
#include <string_view>

namespace korval {

inline QString Latin1(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string Latin1(const QString& text) {
    return text.toLatin1().toStdString();
}

} // namespace korval
