#include "core/sentence_words.h"

#include "core/bundle_path.h"
#include "core/conversions.h"

#include <cctype>

namespace frimbolate {

std::string joined(const Words& words, std::string_view separator, std::string_view last) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0)
            text += i + 1 == words.size() ? last : separator;
        text += words[i];
    }
    return text;
}

std::string capitalized(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

std::string uncapitalized(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    return text;
}

std::string shownPath(std::string_view path, std::string_view home) {
    if (path.starts_with('~'))
        return std::string("\u201c").append(path).append("\u201d");
    const bool inHome = !home.empty() && path.substr(0, home.size()) == home;
    const auto rest = inHome ? path.substr(home.size()) : path;
    if (inHome && (rest.empty() || rest[0] == '/'))
        return std::string("~").append(rest);
    return std::string(path);
}

std::string programName(std::string_view whole) {
    auto path = bundlePath(whole);
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    const auto name = path == "/" ? path : afterLast(path, "/");
    constexpr std::string_view bundle = ".app";
    const bool isBundle = name.size() > bundle.size() && afterLast(name, ".") == "app";
    return std::string(isBundle ? name.substr(0, name.size() - bundle.size()) : name);
}

} // namespace frimbolate
