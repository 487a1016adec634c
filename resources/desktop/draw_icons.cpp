// Draws an icon in every size of an icon theme: draw_icons <svg> <theme> <name> <icns> writes
// <theme>/16x16/apps/<name>.png and so on, and the .icns file of macOS. It needs neither a display
// nor a QGuiApplication, since the drawing contains no text.
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>

#include <iostream>
#include <stdexcept>

namespace {

constexpr int themeSizes[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};

/// The entries of the .icns file. The pixels of a high-resolution entry are twice its points.
struct IcnsEntry {
    char type[5];
    int pixels;
};
constexpr IcnsEntry icnsEntries[] = {
    {"ic11", 32},  {"ic12", 64},  {"ic07", 128}, {"ic13", 256},
    {"ic08", 256}, {"ic14", 512}, {"ic09", 512}, {"ic10", 1024},
};

QByteArray pngOf(QSvgRenderer& drawing, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QBuffer buffer;
    if (!image.save(&buffer, "PNG"))
        throw std::runtime_error("The picture cannot be written as PNG");
    return buffer.data();
}

/// A chunk of the .icns file. Numbers are big-endian; the length includes the eight bytes of the
/// header.
QByteArray chunk(const char* type, const QByteArray& content) {
    const quint32 length = qToBigEndian(static_cast<quint32>(content.size() + 8));
    return QByteArray(type, 4) + QByteArray(reinterpret_cast<const char*>(&length), 4) + content;
}

QByteArray icnsOf(QSvgRenderer& drawing) {
    QByteArray entries;
    for (const IcnsEntry& entry : icnsEntries)
        entries += chunk(entry.type, pngOf(drawing, entry.pixels));
    return chunk("icns", entries);
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size() || !file.flush())
        throw std::runtime_error(path.toStdString() + " cannot be written");
}

void draw(const QString& svg, const QString& theme, const QString& name, const QString& icns) {
    QSvgRenderer drawing(svg);
    if (!drawing.isValid())
        throw std::runtime_error(svg.toStdString() + " is no drawing");
    for (const int size : themeSizes)
        write(QString("%1/%2x%2/apps/%3.png").arg(theme).arg(size).arg(name), pngOf(drawing, size));
    write(icns, icnsOf(drawing));
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 5) {
        std::cerr << "usage: draw_icons <svg> <theme> <name> <icns>\n";
        return 2;
    }
    try {
        draw(argv[1], argv[2], argv[3], argv[4]);
    } catch (const std::exception& failure) {
        std::cerr << "draw_icons: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
