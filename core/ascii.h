// Classes of ASCII characters, independent of the locale.
#pragma once

namespace frimbolate {

constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }

} // namespace frimbolate
