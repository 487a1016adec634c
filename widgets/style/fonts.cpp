#include "widgets/style/fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace frimbolate::style {
namespace {

struct Row {
    FontRole role;
    int pixels;
    QFont::Weight weight;
};
constexpr Row fontRows[] = {
    {FontRole::control, 13, QFont::Normal},
    {FontRole::rowLabel, 13, QFont::Medium},
    {FontRole::hint, 12, QFont::Normal},
    {FontRole::toolbar, 11, QFont::Medium},
    {FontRole::sheetTitle, 15, QFont::DemiBold},
    {FontRole::welcomeTitle, 22, QFont::DemiBold},
    {FontRole::defaultButton, 13, QFont::DemiBold},
    {FontRole::mono, 12, QFont::Normal},
};

/// The default font size of a desktop, in points. A larger size is the user's choice.
struct DesktopDefault {
    const char* desktop;
    double points;
};
constexpr DesktopDefault desktopDefaults[] = {
    {"GNOME", 11}, {"Unity", 11}, {"KDE", 10}, {"XFCE", 10}, {"MATE", 10}, {"LXQt", 11},
};
constexpr double toolkitDefaultPoints = 9;

double defaultPoints() {
    const QByteArrayList names = qgetenv("XDG_CURRENT_DESKTOP").split(':');
    for (const DesktopDefault& row : desktopDefaults)
        if (names.contains(row.desktop))
            return row.points;
    return toolkitDefaultPoints;
}

std::optional<QFont> desktopFont;

QString familyFor(FontRole role) {
    const auto installed = [](const QString& family) { return QFontDatabase::hasFamily(family); };
    if (role == FontRole::mono) {
#ifndef Q_OS_MACOS
        if (const QString mono = "DejaVu Sans Mono"; installed(mono))
            return mono;
#endif
        return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }
    if (const QString display = "Inter Display";
        role == FontRole::welcomeTitle && installed(display))
        return display;
    if (const QString inter = "Inter"; installed(inter))
        return inter;
    return desktopFont.value_or(QGuiApplication::font()).family();
}

} // namespace

void setDesktopFont(const QFont& font) { desktopFont = font; }

double fontScale() {
    if (!desktopFont)
        return 1;
    // 96 pixels per inch at 1x. A higher resolution setting enlarges the texts too.
    const double usual = defaultPoints() * 96 / 72;
    return std::clamp(QFontInfo(*desktopFont).pixelSize() / usual, 1.0, 2.0);
}

int scaled(int pixels) { return static_cast<int>(std::lround(pixels * fontScale())); }

QFont font(FontRole role) {
    const Row& row = *std::ranges::find(fontRows, role, &Row::role);
    QFont result(familyFor(role));
    result.setPixelSize(scaled(row.pixels));
    result.setWeight(row.weight);
    // Unhinted outlines keep the width of a text proportional at every scale.
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

void setFont(QWidget* widget, FontRole role) { widget->setFont(font(role)); }

} // namespace frimbolate::style
