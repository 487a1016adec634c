#include "core/unexpanded.h"

#include "core/ascii.h"
#include "core/conversions.h"

#include <algorithm>

namespace frimbolate {

namespace {

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

/// The variable that begins at the text's "$"; empty where none does.
std::string_view variableAtStart(std::string_view text) {
    const bool hasBraces = text.size() > 1 && text[1] == '{';
    const std::size_t begin = hasBraces ? 2 : 1;
    std::size_t end = begin;
    while (end < text.size() && (isLetter(text[end]) || (end > begin && isDigit(text[end]))))
        ++end;
    const bool isClosed = !hasBraces || (end < text.size() && text[end] == '}');
    if (end == begin || !isClosed)
        return {};
    return text.substr(0, hasBraces ? end + 1 : end);
}

std::string_view nameOf(std::string_view variable) {
    const bool hasBraces = variable.ends_with('}');
    return hasBraces ? variable.substr(2, variable.size() - 3) : variable.substr(1);
}

bool isWellKnown(std::string_view variable) {
    static constexpr std::string_view names[] = {"HOME",  "USER",   "LOGNAME", "PATH",
                                                 "SHELL", "TMPDIR", "PWD"};
    return std::find(std::begin(names), std::end(names), nameOf(variable)) != std::end(names);
}

template <typename IsWanted>
std::string_view firstVariable(std::string_view text, IsWanted isWanted) {
    for (auto at = text.find('$'); at != std::string_view::npos; at = text.find('$', at + 1))
        if (const auto found = variableAtStart(text.substr(at)); !found.empty() && isWanted(found))
            return found;
    return {};
}

} // namespace

std::string_view anyVariable(std::string_view path) {
    return firstVariable(path, [](std::string_view) { return true; });
}

std::string_view wellKnownVariable(std::string_view text) {
    return firstVariable(text, isWellKnown);
}

std::string expandedTilde(std::string_view path, std::string_view home) {
    path.remove_prefix(1);
    const bool isOwnHome = path.empty() || path.front() == '/';
    if (home.empty() || !isOwnHome)
        return "the whole path";
    return std::string(home).append(path);
}

bool isInterpreter(std::string_view program) {
    static constexpr std::string_view names[] = {
        "sh",   "bash", "zsh",       "dash",      "ksh",    "csh",  "tcsh", "fish",
        "perl", "ruby", "osascript", "automator", "python", "node", "php",  "osascript"};
    auto name = afterLast(program, "/");
    // python3, python3.11
    while (!name.empty() && (isDigit(name.back()) || name.back() == '.'))
        name.remove_suffix(1);
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace frimbolate
