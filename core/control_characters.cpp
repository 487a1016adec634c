#include "core/control_characters.h"

namespace frimbolate {

std::string maskedControls(std::string_view text, std::string_view kept) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        const bool isC0 = (unit < ' ' || unit == 0x7f) && kept.find(text[i]) == kept.npos;
        const bool isC1 = unit == 0xc2 && next >= 0x80 && next < 0xa0;
        result += isC0 || isC1 ? '?' : text[i];
        i += isC1 ? 1 : 0;
    }
    return result;
}

} // namespace frimbolate
