#include "core/check_rules.h"

#include "core/launchd_keys.h"

#include <algorithm>

namespace frimbolate {

namespace {

/// The argument as part of a line: without control characters, which a terminal could act on, and
/// not longer than a line.
std::string printable(std::string_view text) {
    constexpr std::size_t most = 120;
    const bool isLong = text.size() > most;
    if (isLong) {
        std::size_t end = most;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
            --end;
        text = text.substr(0, end);
    }
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto byte = static_cast<unsigned char>(result[i]);
        const auto next = static_cast<unsigned char>(i + 1 < result.size() ? result[i + 1] : 0);
        // In UTF-8, C1 is 0xC2 and a byte of 0x80 to 0x9F.
        const bool isC1 = byte == 0xC2 && next >= 0x80 && next <= 0x9F;
        if (isC1)
            result[i + 1] = ' ';
        if (isC1 || byte < 0x20 || byte == 0x7F)
            result[i] = ' ';
    }
    return isLong ? result + "\u2026" : result;
}

std::string filledIn(std::string_view words, std::initializer_list<std::string_view> arguments) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] != '%') {
            text += words[i];
            continue;
        }
        const auto argument = static_cast<std::size_t>(words[++i] - '1');
        text += printable(arguments.begin()[argument]);
    }
    return text;
}

/// The place of a key path in the manual; paths of unknown keys come last, the file first.
std::size_t rank(std::string_view path) {
    if (path.empty())
        return 0;
    const auto keys = launchdKeys();
    const auto* key = launchdKey("", path.substr(0, path.find_first_of(".[")));
    return 1 + (key ? static_cast<std::size_t>(key - keys.data()) : keys.size());
}

} // namespace

std::string_view severityName(Severity severity) {
    static constexpr std::string_view names[] = {"refused", "ignored", "suspicious", "note"};
    return names[std::size_t(severity)];
}

void FindingList::add(Rule rule, std::string key, std::size_t variant,
                      std::initializer_list<std::string_view> arguments) {
    if (++counts_[std::size_t(rule)] > mostPerRule)
        return;
    const auto& row = checkRules()[std::size_t(rule)];
    findings_.push_back({std::string(row.id), row.severity, std::move(key),
                         filledIn(row.words[variant], arguments)});
}

std::vector<Finding> FindingList::takeSorted() {
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding& a, const Finding& b) { return rank(a.key) < rank(b.key); });
    return std::move(findings_);
}

} // namespace frimbolate
