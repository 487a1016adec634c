// The screens of tests that use no display.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace frimbolate::test {

/// A wide screen, on which windows open, and a narrow one to its right.
inline constexpr const char* offscreenScreens = R"({"screens": [
    {"name": "wide", "x": 0, "y": 0, "width": 2800, "height": 2000},
    {"name": "narrow", "x": 2800, "y": 0, "width": 1024, "height": 600}]})";

/// The value of QT_QPA_PLATFORM for these screens; writes their description to `path`.
inline QByteArray offscreenPlatform(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(offscreenScreens) < 0)
        qFatal("The screens of the tests cannot be described in %s", qUtf8Printable(path));
    return "offscreen:configfile=" + QFile::encodeName(path);
}

} // namespace frimbolate::test
