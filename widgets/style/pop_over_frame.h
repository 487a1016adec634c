// What a pop-over is drawn on: a panel with round corners and an arrow at one of its edges that
// points at something, with a soft shadow where the desktop blends windows, and in a cut-out shape
// where not.
#pragma once

#include <QMargins>
#include <QRegion>
#include <QSize>

class QPainter;
class QPainterPath;
class QWidget;

namespace frimbolate::style {

/// Where the arrow stands.
struct PopOverArrow {
    Qt::Edge edge; ///< of the panel
    int tip;       ///< its y at the left or right edge, its x otherwise; pixels of the window
};

class PopOverFrame {
  public:
    /// How far the arrow sticks out of the panel, in pixels of the 1x layout.
    static constexpr int arrow = 9;

    /// \param translucent whether the desktop blends windows
    explicit PopOverFrame(bool translucent) : translucent_(translucent) {}

    /// Where the window may be seen through and throws a shadow of its own.
    bool isTranslucent() const { return translucent_; }
    /// Room around panel and arrow, in pixels; the shadow lies in it.
    int margin() const;
    /// What the window has around the panel, in pixels.
    QMargins around(Qt::Edge arrowEdge) const;

    /// The pixels of panel and arrow in a window of that size.
    QRegion shape(const QSize& window, const PopOverArrow& arrow) const;
    void paint(QWidget& window, const PopOverArrow& arrow) const;

  private:
    QRect panelRect(const QSize& window, Qt::Edge arrowEdge) const;
    void paintShadow(QPainter& painter, const QRectF& panel, bool dark) const;

    bool translucent_;
};

} // namespace frimbolate::style
