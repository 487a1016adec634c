#include "widgets/style/fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
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

/// The size in whole pixels. QFontInfo would load the font for it, which nothing else uses.
double pixelsOf(const QFont& font) {
    if (font.pixelSize() > 0)
        return font.pixelSize();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return std::round(font.pointSizeF() * (screen ? screen->logicalDotsPerInchY() : 96) / 72);
}

std::optional<QFont> desktopFont;
std::optional<double> desktopFontScale; ///< computed once for each desktop font

/// The families that the program prefers, as far as they are installed.
struct InstalledFamilies {
    bool inter = false, interDisplay = false, dejaVuSansMono = false;
};

/// Looks through the toolkit's list of families, since QFontDatabase::hasFamily() has the system's
/// font configuration substitute the name at each call: that took two fifths of the processor time
/// of a start.
InstalledFamilies findFamilies() {
    InstalledFamilies found;
    for (const QString& family : QFontDatabase::families()) {
        // A family of several foundries is listed once for each: "Inter [rsms]".
        const QString name = family.section(" [", 0, 0);
        found.inter |= name == "Inter";
        found.interDisplay |= name == "Inter Display";
        found.dejaVuSansMono |= name == "DejaVu Sans Mono";
    }
    return found;
}

/// Found once, and again when fonts were installed or removed.
const InstalledFamilies& installed() {
    static std::optional<InstalledFamilies> known;
    static const QMetaObject::Connection change =
        QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, [] { known.reset(); });
    Q_UNUSED(change)
    if (!known)
        known = findFamilies();
    return *known;
}

QString familyFor(FontRole role) {
    if (role == FontRole::mono) {
#ifndef Q_OS_MACOS
        if (installed().dejaVuSansMono)
            return "DejaVu Sans Mono";
#endif
        return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }
    if (role == FontRole::welcomeTitle && installed().interDisplay)
        return "Inter Display";
    if (installed().inter)
        return "Inter";
    return desktopFont.value_or(QGuiApplication::font()).family();
}

} // namespace

void setDesktopFont(const QFont& font) {
    desktopFont = font;
    desktopFontScale.reset();
}

double fontScale() {
    if (!desktopFont)
        return 1;
    if (!desktopFontScale) {
        // 96 pixels per inch at 1x. A higher resolution setting enlarges the texts too.
        const double usual = defaultPoints() * 96 / 72;
        desktopFontScale = std::clamp(pixelsOf(*desktopFont) / usual, 1.0, 2.0);
    }
    return *desktopFontScale;
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
