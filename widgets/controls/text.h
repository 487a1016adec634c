// Converts texts of the rules (UTF-8) to texts of the toolkit (UTF-16).
#pragma once

#include <QString>

#include <string_view>

namespace frimbolate {

inline QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace frimbolate
