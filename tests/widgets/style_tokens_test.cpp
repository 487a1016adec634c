#include "widgets/style/tokens.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <sstream>

namespace frimbolate::style {
namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

constexpr double text = 4.5;    // WCAG AA for texts
constexpr double graphic = 3.0; // WCAG AA for the visible parts of controls

struct Row {
    const char* name;
    QColor Tokens::*foreground;
    QColor Tokens::*plane;
    double least;
};

const Row rows[] = {
    {"text on window", &Tokens::text, &Tokens::window, text},
    {"text on surface", &Tokens::text, &Tokens::surface, text},
    {"text on raised", &Tokens::text, &Tokens::raised, text},
    {"text on sunken", &Tokens::text, &Tokens::sunken, text},
    {"text on field", &Tokens::text, &Tokens::field, text},
    {"text on button", &Tokens::text, &Tokens::button, text},
    {"text on hover", &Tokens::text, &Tokens::hover, text},
    {"text on pressed", &Tokens::text, &Tokens::pressed, text},
    {"hint on window", &Tokens::secondaryText, &Tokens::window, text},
    {"hint on surface", &Tokens::secondaryText, &Tokens::surface, text},
    {"hint on raised", &Tokens::secondaryText, &Tokens::raised, text},
    {"hint on sunken", &Tokens::secondaryText, &Tokens::sunken, text},
    {"placeholder in field", &Tokens::secondaryText, &Tokens::field, text},
    {"default button", &Tokens::onAccent, &Tokens::accent, text},
    {"default button under the pointer", &Tokens::onAccent, &Tokens::accentHover, text},
    {"toggled item", &Tokens::accent, &Tokens::accentSoft, text},
    {"fault on surface", &Tokens::warnText, &Tokens::surface, text},
    {"fault on window", &Tokens::warnText, &Tokens::window, text},
    {"faulty border on surface", &Tokens::faultyBorder, &Tokens::surface, graphic},
    {"border on surface", &Tokens::controlBorder, &Tokens::surface, graphic},
    {"border on window", &Tokens::controlBorder, &Tokens::window, graphic},
    {"border on sunken", &Tokens::controlBorder, &Tokens::sunken, graphic},
    {"focus on surface", &Tokens::accent, &Tokens::surface, graphic},
    {"focus on sunken", &Tokens::accent, &Tokens::sunken, graphic},
    {"focus on raised", &Tokens::accent, &Tokens::raised, graphic},
};

class Contrast : public testing::TestWithParam<std::tuple<bool, Row>> {};

TEST_P(Contrast, IsSufficient) {
    const auto& [dark, row] = GetParam();
    const Tokens& t = tokens(dark);
    EXPECT_GE(contrast(t.*row.foreground, t.*row.plane), row.least) << row.name;
}

std::string caseName(const testing::TestParamInfo<std::tuple<bool, Row>>& test) {
    std::string name;
    std::istringstream words(std::get<Row>(test.param).name);
    for (std::string word; words >> word; name += word)
        word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    return name + (std::get<bool>(test.param) ? "Dark" : "Light");
}

INSTANTIATE_TEST_SUITE_P(Table, Contrast,
                         testing::Combine(testing::Bool(), testing::ValuesIn(rows)), caseName);

TEST(Tokens, FollowThePalette) {
    EXPECT_EQ(&tokens(palette(false)), &tokens(false));
    EXPECT_EQ(&tokens(palette(true)), &tokens(true));
}

TEST(Tokens, ADisabledControlLooksDifferent) {
    for (const bool dark : {false, true})
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            EXPECT_NE(palette(dark).color(QPalette::Disabled, role),
                      palette(dark).color(QPalette::Active, role));
}

} // namespace
} // namespace frimbolate::style
