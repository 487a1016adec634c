#include "core/command_warning.h"

namespace frimbolate {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

/// Whether a control character starts at this index. In UTF-8 no other character contains these
/// byte sequences.
bool isControl(std::string_view text, std::size_t index) {
    const auto byte = byteAt(text, index);
    const auto next = byteAt(text, index + 1);
    const auto third = byteAt(text, index + 2);
    const bool isC1 = byte == 0xC2 && next >= 0x80 && next <= 0x9F;
    const bool isSeparator = byte == 0xE2 && next == 0x80 && (third == 0xA8 || third == 0xA9);
    return byte < 0x20 || byte == 0x7F || isC1 || isSeparator;
}

bool holdsControl(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (isControl(text, i))
            return true;
    return false;
}

} // namespace

std::string commandWarning(std::string_view path) {
    const bool apostrophe = path.find('\'') != std::string_view::npos;
    const bool control = holdsControl(path);
    if (!apostrophe && !control)
        return "";
    const std::string culprit = apostrophe && control ? "an apostrophe and a control character"
                                : apostrophe          ? "an apostrophe"
                                                      : "a control character";
    return "Do not paste this command as it stands. Its path holds " + culprit +
           ", so it may do more than it shows. Change the path first.";
}

} // namespace frimbolate
