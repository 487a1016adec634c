#include "widgets/style/icons.h"
#include "widgets/style/tokens.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace frimbolate::style {
namespace {

using testing::Gt;

constexpr QRgb lightInk = 0xFF3A4544;
constexpr QRgb darkInk = 0xFFD3DBD9;

/// The number of pixels of exactly this colour; excludes antialiased edges.
int count(const QImage& image, QColor colour) {
    int result = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            result += image.pixel(x, y) == colour.rgb();
    return result;
}

QImage drawn(const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal,
             QIcon::State state = QIcon::Off) {
    return icon.pixmap(QSize(side, side), 1, mode, state).toImage();
}

class Icons : public testing::Test {
  protected:
    ~Icons() override { QApplication::setPalette(palette(false)); }
};

TEST_F(Icons, AreDrawnAtTheRequestedSize) {
    for (const int side : {16, 20, 32, 40, 64, 128}) {
        const QImage image = drawn(toolIcon("save"), side);
        EXPECT_EQ(image.size(), QSize(side, side));
    }
    const QPixmap doubled = toolIcon("save").pixmap(QSize(20, 20), 2);
    EXPECT_EQ(doubled.size(), QSize(40, 40));
    EXPECT_EQ(doubled.devicePixelRatio(), 2);
}

TEST_F(Icons, AreSharpAtEverySize) {
    // An image enlarged from 20 pixels would have no sharp edge within two pixels.
    const QImage image = drawn(toolIcon("save"), 128);
    int steepest = 0;
    for (int x = 1; x < image.width(); ++x)
        steepest = std::max(steepest,
                            std::abs(qAlpha(image.pixel(x, 64)) - qAlpha(image.pixel(x - 1, 64))));
    EXPECT_THAT(steepest, Gt(100));
}

TEST_F(Icons, TakeTheirForegroundFromThePalette) {
    const QIcon icon = toolIcon("save");
    EXPECT_THAT(count(drawn(icon, 64), lightInk), Gt(0));
    EXPECT_EQ(count(drawn(icon, 64), darkInk), 0);
    QApplication::setPalette(palette(true));
    EXPECT_EQ(count(drawn(icon, 64), lightInk), 0);
    EXPECT_THAT(count(drawn(icon, 64), darkInk), Gt(0));
}

struct StateRow {
    const char* name;
    QIcon::Mode mode;
    QIcon::State state;
    QColor Tokens::*foreground;
};
const StateRow stateRows[] = {
    {"Disabled", QIcon::Disabled, QIcon::Off, &Tokens::disabledText},
    {"Toggled", QIcon::Normal, QIcon::On, &Tokens::accent},
    {"Selected", QIcon::Selected, QIcon::Off, &Tokens::onAccent},
};

TEST_F(Icons, TakeTheirForegroundFromTheState) {
    for (const bool dark : {false, true}) {
        QApplication::setPalette(palette(dark));
        for (const StateRow& row : stateRows)
            EXPECT_THAT(count(drawn(toolIcon("save"), 64, row.mode, row.state),
                              tokens(dark).*row.foreground),
                        Gt(0))
                << row.name;
    }
}

TEST_F(Icons, HaveAWhiteTileOnTheDrawer) {
    const Image folder = Image::iconForFile(QDir::tempPath().toStdString());
    EXPECT_THAT(count(drawn(imageIcon(folder, Surface::drawer), 32), Qt::white), Gt(100));
    EXPECT_THAT(count(drawn(imageIcon(folder, Surface::card), 32), 0xE3EAE8), Gt(100));
}

TEST_F(Icons, ShowNothingForNoImageAndForUnknownNames) {
    EXPECT_TRUE(imageIcon(Image::none()).isNull());
    EXPECT_TRUE(imageIcon(Image::resource("iconOfNothing.png")).isNull());
    EXPECT_TRUE(toolIcon("nothing").isNull());
}

struct FileRow {
    const char* file;
    const char* sameAs; ///< the resource with the same image
};
constexpr FileRow fileRows[] = {
    {"/nowhere/backup.sh", "iconScriptBash.png"},
    {"/nowhere/backup.tar.sh", "iconScriptBash.png"},
    {"/nowhere/backup.py", "iconScriptPython.png"},
    {"/nowhere/backup.rb", "iconScriptRuby.png"},
    {"/nowhere/backup.pl", "iconScriptPerl.png"},
    {"/nowhere/backup.scpt", "iconScriptAppleScript.png"},
    {"/nowhere/Backup.workflow", "iconScriptWorkflow.png"},
};

TEST_F(Icons, ShowTheTileOfAScriptForItsFile) {
    for (const FileRow& row : fileRows)
        EXPECT_EQ(drawn(imageIcon(Image::iconForFile(row.file)), 32),
                  drawn(imageIcon(Image::resource(row.sameAs)), 32))
            << row.file;
}

TEST_F(Icons, ShowANeutralTileForApplicationsAndMissingFiles) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath("There.app/Contents");
    const std::string there = folder.filePath("There.app").toStdString();
    const QImage own = drawn(toolIcon("app"), 32);
    const QImage application = drawn(toolIcon("application"), 32);
    const QImage file = drawn(toolIcon("file"), 32);
    EXPECT_NE(application, own);
    EXPECT_NE(application, file);
    for (const QImage& tile : {application, file})
        EXPECT_THAT(count(tile, 0xE3EAE8), Gt(100)); // the background of every tile
    EXPECT_EQ(drawn(imageIcon(Image::iconForFile("/Applications/Any.app")), 32), application);
#ifndef Q_OS_MACOS
    EXPECT_EQ(drawn(imageIcon(Image::iconForFile(there)), 32), application);
#endif
    EXPECT_EQ(drawn(imageIcon(Image::iconForFile("/nowhere/program")), 32), file);
}

} // namespace
} // namespace frimbolate::style
