#include "widgets/style/icons.h"

#include "core/script_types.h"

#include "widgets/style/tokens.h"

#include <QFile>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <iterator>

/// Resources of a static library must be registered explicitly.
static void loadResources() { Q_INIT_RESOURCE(resources); }

namespace frimbolate::style {
namespace {

constexpr char foregroundLiteral[] = "#3A4544";
constexpr char accentLiteral[] = "#0D6F6B";
constexpr char tileLiteral[] = "#E3EAE8";

struct Colours {
    QColor foreground, accent, tile;
};

class SvgIconEngine : public QIconEngine {
  public:
    /// \param name identifies the source in the pixmap cache; unique
    SvgIconEngine(QString name, QByteArray source, Surface surface)
        : name_(std::move(name)), source_(std::move(source)), surface_(surface) {}

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }
    bool isNull() override { return source_.isEmpty(); }
    QString key() const override { return "frimbolate-svg"; }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        QSvgRenderer renderer(recoloured(colours(mode, state)));
        if (name_.endsWith("/app.svg"))
            renderer.setViewBox(QRect(8, 8, 112, 112)); // without the margin for desktops
        QRectF square(0, 0, qMin(rect.width(), rect.height()), qMin(rect.width(), rect.height()));
        square.moveCenter(QRectF(rect).center());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        renderer.render(painter, square);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const Colours used = colours(mode, state);
        const QString entry =
            QString("%1:%2x%3:%4%5%6")
                .arg(name_)
                .arg(size.width())
                .arg(size.height())
                .arg(used.foreground.name(), used.accent.name(), used.tile.name());
        QPixmap result;
        if (QPixmapCache::find(entry, &result))
            return result;
        result = QPixmap(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, result.rect(), mode, state);
        QPixmapCache::insert(entry, result);
        return result;
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        return pixmap(size, mode, state);
    }

  private:
    Colours colours(QIcon::Mode mode, QIcon::State state) const {
        const QPalette palette = QGuiApplication::palette();
        const Tokens& t = tokens(palette);
        const bool isDark = &t == &tokens(true);
        const QColor tile = surface_ == Surface::drawer ? (isDark ? t.button : t.surface)
                                                        : QColor(isDark ? 0x2C3635 : 0xE3EAE8);
        if (mode == QIcon::Disabled)
            return {t.disabledText, t.disabledText, tile};
        if (mode == QIcon::Selected && !source_.contains(tileLiteral))
            return {t.onAccent, t.onAccent, tile};
        const QColor foreground = isDark ? 0xD3DBD9 : 0x3A4544;
        return {state == QIcon::On ? t.accent : foreground, t.accent, tile};
    }

    QByteArray recoloured(const Colours& colours) const {
        QByteArray result = source_;
        result.replace(foregroundLiteral, colours.foreground.name().toLatin1());
        result.replace(accentLiteral, colours.accent.name().toLatin1());
        result.replace(tileLiteral, colours.tile.name().toLatin1());
        return result;
    }

    QString name_;
    QByteArray source_;
    Surface surface_;
};

QIcon svgIcon(const QString& fileName, Surface surface) {
    static const bool isLoaded = (loadResources(), true);
    Q_UNUSED(isLoaded)
    QFile file(fileName);
    return QIcon(new SvgIconEngine(
        fileName, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), surface));
}

/// An icon of the file panels, in the strokes of the tool icons: 20 x 20 units, 1.5 wide.
struct Glyph {
    QStyle::StandardPixmap pixmap;
    const char* path;
};
constexpr char folder[] = "M2.75 6.25c0-1 .75-1.75 1.75-1.75h3.25l2 2.25h5.75c1 0 1.75.75 1.75 1.75"
                          "v5.25c0 1-.75 1.75-1.75 1.75h-11c-1 0-1.75-.75-1.75-1.75Z";
constexpr char drive[] =
    "M4.5 5h11l1.75 5.75v2.5c0 1-.75 1.75-1.75 1.75h-11c-1 0-1.75-.75-1.75-1.75"
    "v-2.5Z M2.75 10.75h14.5";
constexpr Glyph glyphs[] = {
    {QStyle::SP_FileDialogBack, "M16.5 10h-13 M8.75 4.75 3.5 10l5.25 5.25"},
    {QStyle::SP_ArrowBack, "M16.5 10h-13 M8.75 4.75 3.5 10l5.25 5.25"},
    {QStyle::SP_ArrowForward, "M3.5 10h13 M11.25 4.75 16.5 10l-5.25 5.25"},
    {QStyle::SP_FileDialogToParent, "M10 16.5v-13 M4.75 8.75 10 3.5l5.25 5.25"},
    {QStyle::SP_FileDialogListView, "M3.75 3.75h4.5v4.5h-4.5Z M11.75 3.75h4.5v4.5h-4.5Z "
                                    "M3.75 11.75h4.5v4.5h-4.5Z M11.75 11.75h4.5v4.5h-4.5Z"},
    {QStyle::SP_FileDialogDetailedView, "M3.25 5.25h13.5 M3.25 10h13.5 M3.25 14.75h13.5"},
    {QStyle::SP_FileDialogNewFolder,
     "M2.75 6.25c0-1 .75-1.75 1.75-1.75h3.25l2 2.25h5.75c1 0 1.75.75 1.75 1.75v5.25c0 1-.75 "
     "1.75-1.75 1.75h-11c-1 0-1.75-.75-1.75-1.75Z M10 8.75v4.5 M7.75 11h4.5"},
    {QStyle::SP_LineEditClearButton, "M17 10a7 7 0 1 1-14 0 7 7 0 0 1 14 0Z M7.75 7.75l4.5 4.5 "
                                     "M12.25 7.75l-4.5 4.5"},
    {QStyle::SP_DirIcon, folder},
    {QStyle::SP_DirOpenIcon, folder},
    {QStyle::SP_DirLinkIcon, folder},
    {QStyle::SP_DirHomeIcon, "M3.75 9.5 10 3.75l6.25 5.75v6.75h-4.5v-4.5h-3.5v4.5h-4.5Z"},
    {QStyle::SP_FileIcon, "M11.25 2.75H6c-1 0-1.75.75-1.75 1.75v11c0 1 .75 1.75 1.75 1.75h8c1 0 "
                          "1.75-.75 1.75-1.75V7.25Z M11.25 2.75v4.5h4.5"},
    {QStyle::SP_ComputerIcon, "M4.5 3.75h11c1 0 1.75.75 1.75 1.75v6.25h-14.5V5.5c0-1 .75-1.75 "
                              "1.75-1.75Z M10 11.75v4.5 M6.25 16.25h7.5"},
    {QStyle::SP_DriveHDIcon, drive},
    {QStyle::SP_DriveNetIcon, drive},
};

#ifdef Q_OS_MACOS
constexpr bool desktopHasEveryIcon = true;
#else
constexpr bool desktopHasEveryIcon = false;
#endif

/// The resource of the program's tile for a file; empty where the desktop's icon is preferred.
QString tileFor(const QFileInfo& file) {
    if (const auto* type = scriptTypeWithExtension(file.suffix().toStdString()))
        return ":/images/" + QString::fromUtf8(type->image.data(), std::ssize(type->image));
    if (file.suffix() == "app")
        return ":/icons/application.svg";
    return file.isDir() ? ":/icons/folder.svg" : QString();
}

QIcon fileIcon(const QString& path, Surface surface) {
    const QFileInfo file(path);
    QString tile = tileFor(file);
    if (tile.isEmpty() || desktopHasEveryIcon) {
        const QIcon ofDesktop = QFileIconProvider().icon(file);
        if (file.exists() && !ofDesktop.isNull())
            return ofDesktop;
    }
    if (tile.isEmpty())
        tile = ":/icons/file.svg";
    return svgIcon(tile, surface);
}

} // namespace

QIcon toolIcon(std::string_view name) {
    return svgIcon(":/icons/" + QString::fromUtf8(name.data(), std::ssize(name)) + ".svg",
                   Surface::card);
}

QIcon standardIcon(QStyle::StandardPixmap pixmap) {
    const auto* glyph = std::ranges::find(glyphs, pixmap, &Glyph::pixmap);
    if (glyph == std::end(glyphs))
        return {};
    const QByteArray source = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 20 20">)"
                              R"(<path fill="none" stroke="#3A4544" stroke-width="1.5" )"
                              R"(stroke-linecap="round" stroke-linejoin="round" d=")" +
                              QByteArray(glyph->path) + R"("/></svg>)";
    return QIcon(new SvgIconEngine(glyph->path, source, Surface::card));
}

QIcon imageIcon(const Image& image, Surface surface) {
    const QString name = QString::fromStdString(image.name);
    switch (image.kind) {
    case Image::Kind::Resource:
        return svgIcon(":/images/" + name, surface);
    case Image::Kind::FileIcon:
        return fileIcon(name, surface);
    case Image::Kind::None:
        break;
    }
    return {};
}

} // namespace frimbolate::style
