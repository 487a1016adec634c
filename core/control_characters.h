// Texts of files and arguments without the characters that a terminal acts on.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// The text with "?" for each control character: C0, DEL and C1.
/// \param kept control characters of one byte that stay, such as "\n"
/// \param text UTF-8; other bytes stay as they are
std::string maskedControls(std::string_view text, std::string_view kept = "");

} // namespace frimbolate
