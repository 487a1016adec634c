// What the program's own widgets are painted with; each calls one of these from its paintEvent().
// Lengths follow the person's font, colours the widget's palette.
#pragma once

#include <Qt>

class QAbstractButton;
class QLabel;
class QPixmap;
class QRectF;
class QWidget;

namespace frimbolate::style {

/// Where rows are parted, and how far their lines keep from the edges; pixels of the 1x layout.
constexpr int cardRowHeight = 72, cardMargin = 24;
/// How wide the dot at the statusLine is; pixels of the 1x layout.
constexpr int statusDotSide = 8;

/// The plate of the form, with hairlines between its rows.
void paintCard(QWidget& card, int rows);
/// The ground of the drawer; beside the form with the shadow of the form that lies above it.
void paintDrawer(QWidget& drawer, bool besideForm);
/// How far the shadow of a drawer over the form reaches; pixels of the 1x layout.
constexpr int drawerShadowReach = 24;
/// The shadow that a drawer throws on the form to its left.
void paintDrawerShadow(QWidget& shadow);
/// The strip at the statusLine: a hairline above, and a dot that lights up when the plan is
/// complete.
void paintStatusLine(QWidget& statusLine, bool complete);
/// Dims what lies behind a sheet.
void paintScrim(QWidget& scrim);
/// The number of a step on a soft round plate.
void paintBadge(QWidget& badge, int number);
/// A question mark in a circle.
void paintTip(QAbstractButton& tip);
/// An image well with nothing in it: a dashed square with a plus.
void paintEmptyWell(QWidget& well);
/// The border of what would take the file that is held over it, as that of a focus.
void paintDropPlace(QWidget& place);
/// The sign of a warning, and how far its words keep from it; pixels of the 1x layout.
constexpr int warningSignSide = 20, warningSignGap = 8;
/// A wrapped text in the colour of faults, with the sign before it, in the left margin.
void paintWarning(QLabel& label);
/// One line of text, elided where it is too long, in the colour of hints or of faults.
void paintHint(QLabel& hint, Qt::TextElideMode mode, bool warning);

/// How far the shadow of a sheet spreads, and how much lower than the sheet it lies; pixels.
constexpr int sheetShadowReach = 26, sheetShadowDrop = 6;

/// A sheet that the desktop frames.
void paintPlainSheet(QWidget& sheet);
/// A sheet with its own frame: what lies behind it, the shadow, and the panel, square above, where
/// it comes out from under the toolbar, and round below.
void paintSheet(QWidget& sheet, const QPixmap& backdrop, const QRectF& panel);
/// The same on its way out, with the picture of its content.
void paintSlidingSheet(QWidget& overlay, const QPixmap& backdrop, const QRectF& panel,
                       const QPixmap& content);

} // namespace frimbolate::style
