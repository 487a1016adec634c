// What a pop-over is drawn on: a panel with round corners and an arrow at its left that points at
// something, with a soft shadow where the desktop blends windows, and in a cut-out shape where not.
#pragma once

#include <QRegion>
#include <QSize>

class QPainter;
class QPainterPath;
class QWidget;

namespace frimbolate::look {

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
    /// The window's size for a panel, both in pixels.
    QSize windowSize(const QSize& panel) const;

    /// The pixels of panel and arrow in a window of that size, the tip of the arrow at that height.
    QRegion shape(const QSize& window, int tipY) const;
    void paint(QWidget& window, int tipY) const;

  private:
    QRect panelRect(const QSize& window) const;
    QPainterPath outline(const QRectF& panel, double radius, double tipY) const;
    void paintShadow(QPainter& painter, const QRectF& panel, bool dark) const;

    bool translucent_;
};

} // namespace frimbolate::look
