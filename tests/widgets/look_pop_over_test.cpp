#include "ui/widgets/look/pop_over_frame.h"
#include "ui/widgets/look/tokens.h"

#include <QImage>
#include <QWidget>

#include <gtest/gtest.h>

namespace frimbolate::look {
namespace {

constexpr QSize panel(200, 100);
constexpr int tipBelowTop = 32;

/// What a frame paints for a panel, at the place of its arrow's tip.
struct Painted {
    struct Window : QWidget {
        explicit Window(const Painted& p) : painted(p) {
            setAttribute(Qt::WA_TranslucentBackground);
            resize(p.size);
        }
        void paintEvent(QPaintEvent*) override { painted.frame.paint(*this, painted.tipY); }
        const Painted& painted;
    };

    explicit Painted(bool translucent, bool dark = false)
        : frame(translucent), size(frame.windowSize(panel)), tipY(frame.margin() + tipBelowTop) {
        Window window(*this);
        window.setPalette(palette(dark));
        image = window.grab().toImage();
    }
    QColor at(int x, int y) const { return image.pixelColor(x, y); }

    PopOverFrame frame;
    QSize size;
    int tipY;
    QImage image;
};

TEST(PopOverFrame, CutOutIsAsLargeAsPanelAndArrow) {
    const Painted p(false);
    EXPECT_EQ(p.size, panel + QSize(PopOverFrame::arrow, 0));
    const QRegion shape = p.frame.shape(p.size, p.tipY);
    EXPECT_TRUE(shape.contains(QPoint(1, p.tipY)));
    EXPECT_FALSE(shape.contains(QPoint(1, p.tipY + 5)));
    EXPECT_FALSE(shape.contains(QPoint(PopOverFrame::arrow, 0))) << "the corner is round";
    EXPECT_TRUE(shape.contains(QPoint(PopOverFrame::arrow + 8, 0)));
}

TEST(PopOverFrame, CutOutHasOnePixelOfBorderAllRound) {
    const Painted p(false);
    const Tokens& t = tokens(false);
    const int middle = p.size.width() / 2, bottom = p.size.height() - 1;
    EXPECT_EQ(p.at(middle, 0), t.popOverBorder);
    EXPECT_EQ(p.at(middle, 1), t.surface);
    EXPECT_EQ(p.at(middle, bottom), t.popOverBorder);
    EXPECT_EQ(p.at(middle, bottom - 1), t.surface);
    EXPECT_EQ(p.at(PopOverFrame::arrow + 1, p.tipY), t.surface) << "panel and arrow are one";
}

TEST(PopOverFrame, BlendedThrowsAShadowThatFadesOut) {
    for (const bool dark : {false, true}) {
        const Painted p(true, dark);
        const Tokens& t = tokens(dark);
        const int middle = p.size.width() / 2, bottom = p.size.height() - p.frame.margin();
        EXPECT_EQ(p.at(middle, bottom - 3), t.surface);
        EXPECT_EQ(p.at(0, 0).alpha(), 0);
        EXPECT_GT(p.at(middle, bottom + 1).alpha(), p.at(middle, bottom + 8).alpha());
        EXPECT_GT(p.at(middle, bottom + 8).alpha(), 0);
        EXPECT_EQ(p.at(middle, p.size.height() - 1).alpha(), 0);
    }
}

TEST(PopOverFrame, BlendedLeavesItsShadowOutOfItsShape) {
    const Painted p(true);
    const QRegion shape = p.frame.shape(p.size, p.tipY);
    EXPECT_FALSE(shape.contains(QPoint(p.size.width() / 2, p.size.height() - 2)));
    EXPECT_TRUE(shape.contains(QPoint(p.size.width() / 2, p.size.height() / 2)));
    EXPECT_TRUE(shape.contains(QPoint(p.frame.margin() + 1, p.tipY)));
}

} // namespace
} // namespace frimbolate::look
