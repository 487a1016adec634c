#include "plist/key_lines.h"

#include "core/named_error.h"
#include "plist/binary_reader.h"
#include "plist/limits.h"
#include "plist/text_cursor.h"
#include "plist/text_encoding.h"

#include <algorithm>
#include <vector>

namespace frimbolate {

namespace {

/// Deeper keys of an agent carry no meaning for launchd.
constexpr std::size_t mostLevels = 4;
/// No key of launchd is that long. Without a limit a long key would be repeated in the path of each
/// key below it.
constexpr std::size_t longestPath = 1000;
/// In bytes, for all paths. What follows in a larger file has no line.
constexpr std::size_t mostMemory = std::size_t{32} << 20;

/// An open array or dictionary.
struct KeyLevel {
    std::string path;
    bool isArray;
    std::size_t elements; ///< of an array, begun so far
    bool hasPath;         ///< neither too deep nor too long
};

class KeyLineScanner {
  public:
    explicit KeyLineScanner(std::string_view text) : text_(text), in_(text) {}

    KeyLines scan() {
        while (moveToTag()) {
            if (in_.take("<!--"))
                skipPast("-->");
            else if (in_.take("<![CDATA["))
                skipPast("]]>");
            else if (in_.take("<?"))
                skipPast("?>");
            else
                readTag();
        }
        return std::move(lines_);
    }

  private:
    bool moveToTag() {
        const auto tag = in_.find('<');
        if (tag == std::string_view::npos)
            return false;
        in_.moveTo(tag);
        return true;
    }

    void skipPast(std::string_view end) {
        const auto found = in_.find(end);
        in_.moveTo(found == std::string_view::npos ? text_.size() : found + end.size());
    }

    void readTag() {
        const auto begin = in_.position();
        skipPast(">");
        auto tag = in_.between(begin + 1, std::max(begin + 2, in_.position()) - 1);
        const bool isClosing = tag.starts_with('/');
        const bool isEmpty = tag.ends_with('/');
        if (isClosing)
            tag.remove_prefix(1);
        const auto name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
        if (name == "plist" || name.starts_with('!'))
            return;
        if (isClosing)
            endValue(name);
        else if (name == "key")
            readKey(begin, isEmpty);
        else
            beginValue(name, begin, isEmpty);
    }

    void readKey(std::size_t begin, bool isEmpty) {
        const auto first = in_.position();
        const auto end = isEmpty ? first : in_.find('<');
        // A key in CDATA or with a reference is left without a line: it is no key of launchd.
        key_ = end == std::string_view::npos ? "" : std::string(in_.between(first, end));
        if (hasChildPath())
            record(childPath(levels_.back()), begin);
    }

    void beginValue(std::string_view name, std::size_t begin, bool isEmpty) {
        std::string path;
        const bool hasPath = levels_.empty() || hasChildPath();
        if (!levels_.empty() && hasPath) {
            path = childPath(levels_.back());
            if (levels_.back().isArray)
                record(path, begin);
        }
        if (!levels_.empty())
            ++levels_.back().elements;
        if (!isEmpty && (name == "dict" || name == "array"))
            levels_.push_back({std::move(path), name == "array", 0, hasPath});
    }

    void endValue(std::string_view name) {
        if ((name == "dict" || name == "array") && !levels_.empty())
            levels_.pop_back();
    }

    bool hasChildPath() const {
        return !levels_.empty() && levels_.size() <= mostLevels && levels_.back().hasPath &&
               levels_.back().path.size() + key_.size() <= longestPath;
    }

    void record(const std::string& path, std::size_t begin) {
        constexpr std::size_t node = sizeof(KeyLines::value_type) + plistNodeOverhead;
        if (memory_ < path.size() + node)
            return;
        memory_ -= path.size() + node;
        lines_.insert_or_assign(path, lineAt(begin));
    }

    std::string childPath(const KeyLevel& level) const {
        if (level.isArray)
            return level.path + "[" + std::to_string(level.elements) + "]";
        return level.path.empty() ? key_ : level.path + "." + key_;
    }

    std::size_t lineAt(std::size_t position) {
        line_ += static_cast<std::size_t>(
            std::ranges::count(in_.between(counted_, std::max(counted_, position)), '\n'));
        counted_ = std::max(counted_, position);
        return line_;
    }

    std::string_view text_;
    TextCursor in_;
    KeyLines lines_;
    std::vector<KeyLevel> levels_;
    std::string key_;
    std::size_t memory_ = mostMemory; ///< that is left
    std::size_t line_ = 1;
    std::size_t counted_ = 0;
};

} // namespace

KeyLines keyLines(std::string_view bytes) {
    if (hasBinaryPlistMagic(bytes))
        return {};
    try {
        const DecodedText decoded = decodeText(bytes);
        return KeyLineScanner(decoded.text()).scan();
    } catch (const NamedError&) {
        return {};
    }
}

std::optional<std::size_t> lineOfKey(const KeyLines& lines, std::string_view path) {
    while (!path.empty()) {
        if (const auto found = lines.find(path); found != lines.end())
            return found->second;
        const auto end = path.find_last_of(".[");
        path = path.substr(0, end == std::string_view::npos ? 0 : end);
    }
    return std::nullopt;
}

} // namespace frimbolate
