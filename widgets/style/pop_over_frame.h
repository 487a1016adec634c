// The frame of a pop-over: a panel with round corners and an arrow at one edge. It has a soft
// shadow where the desktop blends translucent windows, and a cut-out window shape elsewhere.
#pragma once

#include <QMargins>
#include <QRegion>
#include <QSize>

class QPainter;
class QPainterPath;
class QWidget;

namespace frimbolate::style {

/// The position of the arrow.
struct PopOverArrow {
    Qt::Edge edge; ///< of the panel
    int tip;       ///< its y at the left or right edge, its x otherwise; pixels of the window
};

class PopOverFrame {
  public:
    /// The length of the arrow outside the panel, in pixels of the 1x layout.
    static constexpr int arrow = 9;

    /// \param translucent whether the desktop blends windows
    explicit PopOverFrame(bool translucent) : translucent_(translucent) {}

    /// Whether the window is translucent and paints its own shadow.
    bool isTranslucent() const { return translucent_; }
    /// The space for the shadow around panel and arrow, in pixels.
    int margin() const;
    /// The window's margins around the panel, in pixels.
    QMargins around(Qt::Edge arrowEdge) const;

    /// The region of panel and arrow in a window of that size.
    QRegion shape(const QSize& window, const PopOverArrow& arrow) const;
    void paint(QWidget& window, const PopOverArrow& arrow) const;

  private:
    QRect panelRect(const QSize& window, Qt::Edge arrowEdge) const;
    void paintShadow(QPainter& painter, const QRectF& panel, bool dark) const;

    bool translucent_;
};

} // namespace frimbolate::style
