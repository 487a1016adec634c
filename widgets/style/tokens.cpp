#include "widgets/style/tokens.h"

namespace frimbolate::style {
namespace {

const Tokens& light() {
    static const Tokens set{
        .window = 0xF2F5F4,
        .surface = 0xFFFFFF,
        .raised = 0xFAFBFB,
        .sunken = 0xE9EEEC,
        .field = 0xFFFFFF,
        .button = 0xF6F8F7,
        .hover = 0xE9EEED,
        .pressed = 0xDCE4E2,
        .hairline = 0xDCE2E0,
        .controlBorder = 0x7D8886,
        .popOverBorder = 0xAEB9B6,
        .text = 0x192120,
        .secondaryText = 0x55605E,
        .disabledText = 0x9BA4A2,
        .accent = 0x0D6F6B,
        .accentHover = 0x0A5C59,
        .onAccent = 0xFFFFFF,
        .accentSoft = 0xE0F0ED,
        .warnText = 0x8A4B00,
        .faultyBorder = 0xB4690E,
        .scrim = QColor(16, 28, 27, 71),
    };
    return set;
}

const Tokens& dark() {
    static const Tokens set{
        .window = 0x161B1B,
        .surface = 0x1F2626,
        .raised = 0x1B2121,
        .sunken = 0x121616,
        .field = 0x191F1F,
        .button = 0x283030,
        .hover = 0x2A3232,
        .pressed = 0x344040,
        .hairline = 0x303838,
        .controlBorder = 0x717D7B,
        .popOverBorder = 0x3C4443,
        .text = 0xEBF0EF,
        .secondaryText = 0xA5B0AE,
        .disabledText = 0x626C6A,
        .accent = 0x4CC2B5,
        .accentHover = 0x6AD2C6,
        .onAccent = 0x04211E,
        .accentSoft = 0x1A3835,
        .warnText = 0xF4B04A,
        .faultyBorder = 0xF4B04A,
        .scrim = QColor(0, 0, 0, 128),
    };
    return set;
}

} // namespace

const Tokens& tokens(bool isDark) { return isDark ? dark() : light(); }

const Tokens& tokens(const QPalette& palette) {
    return tokens(palette.color(QPalette::Active, QPalette::Window).lightness() < 128);
}

QPalette palette(bool isDark) {
    const Tokens& t = tokens(isDark);
    QPalette result(t.button, t.window);
    using Role = QPalette::ColorRole;
    const std::pair<Role, QColor> roles[] = {
        {Role::Window, t.window},
        {Role::WindowText, t.text},
        {Role::Base, t.field},
        {Role::AlternateBase, t.raised},
        {Role::Text, t.text},
        {Role::PlaceholderText, t.secondaryText},
        {Role::Button, t.button},
        {Role::ButtonText, t.text},
        {Role::BrightText, t.onAccent},
        {Role::Highlight, t.accent},
        {Role::HighlightedText, t.onAccent},
        {Role::Link, t.accent},
        {Role::LinkVisited, t.accent},
        {Role::ToolTipBase, t.surface},
        {Role::ToolTipText, t.text},
        {Role::Light, t.surface},
        {Role::Midlight, t.raised},
        {Role::Mid, t.hairline},
        {Role::Dark, t.controlBorder},
    };
    for (const auto& [role, colour] : roles)
        result.setColor(role, colour);
    for (const Role role : {Role::WindowText, Role::Text, Role::ButtonText, Role::PlaceholderText})
        result.setColor(QPalette::Disabled, role, t.disabledText);
    result.setColor(QPalette::Disabled, QPalette::Base, t.window);
    return result;
}

} // namespace frimbolate::style
