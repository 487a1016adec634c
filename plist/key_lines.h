// Finds the line of a key in an XML property list, for messages about it.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// The line of each key and array element, by its path: "Sockets.Listener", "ProgramArguments[1]".
/// The first line is 1.
using KeyLines = std::map<std::string, std::size_t, std::less<>>;

/// The lines of the outermost levels of a file that readPropertyList() accepts. Keys of over a
/// thousand bytes have none, nor has what follows very many keys. Empty for any form but XML. Never
/// throws for a damaged one; takes linear time.
KeyLines keyLines(std::string_view bytes);

/// The line of a key path, or of the innermost part of it that the file has.
std::optional<std::size_t> lineOfKey(const KeyLines& lines, std::string_view path);

} // namespace frimbolate
