#include "widgets/style/pop_over_frame.h"
#include "widgets/style/tokens.h"

#include <QImage>
#include <QWidget>

#include <gtest/gtest.h>

namespace frimbolate::style {
namespace {

constexpr QSize panel(200, 100);
constexpr int tipBehindCorner = 32;

/// The image of a frame, and the position of its arrow's tip.
struct Painted {
    struct Window : QWidget {
        explicit Window(const Painted& p) : painted(p) {
            setAttribute(Qt::WA_TranslucentBackground);
            resize(p.size);
        }
        void paintEvent(QPaintEvent*) override { painted.frame.paint(*this, painted.arrow()); }
        const Painted& painted;
    };

    explicit Painted(bool translucent, bool dark = false, Qt::Edge arrowEdge = Qt::LeftEdge)
        : frame(translucent), edge(arrowEdge), size(panel.grownBy(frame.around(edge))),
          tipY(frame.margin() + tipBehindCorner) {
        Window window(*this);
        window.setPalette(palette(dark));
        image = window.grab().toImage();
    }
    QColor at(int x, int y) const { return image.pixelColor(x, y); }

    PopOverArrow arrow() const { return {edge, tipY}; }

    PopOverFrame frame;
    Qt::Edge edge;
    QSize size;
    int tipY; ///< the x instead if the arrow is above or below
    QImage image;
};

TEST(PopOverFrame, CutOutIsAsLargeAsPanelAndArrow) {
    const Painted p(false);
    EXPECT_EQ(p.size, panel + QSize(PopOverFrame::arrow, 0));
    const QRegion shape = p.frame.shape(p.size, p.arrow());
    EXPECT_TRUE(shape.contains(QPoint(1, p.tipY)));
    EXPECT_FALSE(shape.contains(QPoint(1, p.tipY + 5)));
    EXPECT_FALSE(shape.contains(QPoint(PopOverFrame::arrow, 0))) << "the corner is round";
    EXPECT_TRUE(shape.contains(QPoint(PopOverFrame::arrow + 8, 0)));
}

TEST(PopOverFrame, CutOutHasItsArrowAtAnyEdge) {
    constexpr int reach = PopOverFrame::arrow, tip = tipBehindCorner;
    const int right = panel.width() + reach, bottom = panel.height() + reach;
    const std::tuple<Qt::Edge, QPoint, QPoint> rows[] = {
        {Qt::LeftEdge, {1, tip}, {1, tip + 5}},
        {Qt::RightEdge, {right - 2, tip}, {right - 2, tip + 5}},
        {Qt::TopEdge, {tip, 1}, {tip + 5, 1}},
        {Qt::BottomEdge, {tip, bottom - 2}, {tip + 5, bottom - 2}}};
    for (const auto& [edge, inArrow, beside] : rows) {
        const Painted p(false, false, edge);
        const QRegion shape = p.frame.shape(p.size, p.arrow());
        EXPECT_TRUE(shape.contains(inArrow)) << edge;
        EXPECT_FALSE(shape.contains(beside)) << edge;
        const QRect whole = QRect(QPoint(0, 0), p.size).marginsRemoved(p.frame.around(edge));
        EXPECT_EQ(whole.size(), panel);
        EXPECT_TRUE(shape.contains(whole.center()));
        for (int y = 0; y < p.size.height(); ++y)
            for (int x = 0; x < p.size.width(); ++x) {
                const QPoint at(x, y);
                if (!shape.contains(at))
                    continue;
                bool isInside = true;
                for (const QPoint& step :
                     {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
                    isInside &= shape.contains(at + step);
                ASSERT_EQ(p.at(x, y),
                          isInside ? tokens(false).surface : tokens(false).popOverBorder)
                    << edge << ": " << x << ',' << y;
            }
    }
}

TEST(PopOverFrame, BlendedHasItsArrowAtAnyEdge) {
    for (const Qt::Edge edge : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge}) {
        const Painted p(true, false, edge);
        const QRect whole = QRect(QPoint(0, 0), p.size).marginsRemoved(p.frame.around(edge));
        const int middle = PopOverFrame::arrow / 2;
        const QPoint inArrow = edge == Qt::LeftEdge    ? QPoint(whole.left() - middle, p.tipY)
                               : edge == Qt::RightEdge ? QPoint(whole.right() + middle, p.tipY)
                               : edge == Qt::TopEdge   ? QPoint(p.tipY, whole.top() - middle)
                                                       : QPoint(p.tipY, whole.bottom() + middle);
        EXPECT_EQ(p.at(inArrow.x(), inArrow.y()), tokens(false).surface) << edge;
    }
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

TEST(PopOverFrame, BlendedCastsAShadowThatFadesOut) {
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
    const QRegion shape = p.frame.shape(p.size, p.arrow());
    EXPECT_FALSE(shape.contains(QPoint(p.size.width() / 2, p.size.height() - 2)));
    EXPECT_TRUE(shape.contains(QPoint(p.size.width() / 2, p.size.height() / 2)));
    EXPECT_TRUE(shape.contains(QPoint(p.frame.margin() + 1, p.tipY)));
}

} // namespace
} // namespace frimbolate::style
