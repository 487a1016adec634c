// The painting of the program's own widgets; each calls one of these from its paintEvent(). Lengths
// scale with the user's font, colours follow the widget's palette.
#pragma once

#include <Qt>

class QAbstractButton;
class QLabel;
class QPixmap;
class QRect;
class QWidget;

namespace frimbolate::style {

/// The height of a row, and the inset of the lines between rows; pixels of the 1x layout.
constexpr int cardRowHeight = 72, cardMargin = 24;
/// The diameter of the dot of the status line; pixels of the 1x layout.
constexpr int statusDotSide = 8;

/// The card of the form, with hairlines between its rows.
void paintCard(QWidget& card, int rows);
/// The background of the drawer; beside the form with the shadow of the form above it.
void paintDrawer(QWidget& drawer, bool besideForm);
/// The width of the shadow of a drawer over the form; pixels of the 1x layout.
constexpr int drawerShadowReach = 24;
/// The shadow that a drawer casts on the form to its left.
void paintDrawerShadow(QWidget& shadow);
/// The status line: a hairline above, and a dot that lights up when the summary is complete.
void paintStatusLine(QWidget& statusLine, bool complete);
/// Dims the window behind a sheet.
void paintScrim(QWidget& scrim);
/// The number of a step in a filled circle.
void paintBadge(QWidget& badge, int number);
/// A question mark in a circle.
void paintTip(QAbstractButton& tip);
/// An empty image well: a dashed square with a plus.
void paintEmptyWell(QWidget& well);
/// The border of a widget that would accept the current drag; looks like a focus border.
void paintDropPlace(QWidget& place);
/// The size of a warning sign, and its distance from the text; pixels of the 1x layout.
constexpr int warningSignSide = 20, warningSignGap = 8;
/// A wrapped text in the warning colour, with the sign in the left margin.
void paintWarning(QLabel& label);
/// One line of text, elided if it is too long, in the hint or warning colour.
void paintHint(QLabel& hint, const QString& text, Qt::TextElideMode mode, bool warning);

/// The spread of a sheet's shadow and its downward offset; pixels.
constexpr int sheetShadowReach = 26, sheetShadowDrop = 6;

/// A sheet that the desktop frames.
void paintPlainSheet(QWidget& sheet);
/// A sheet with its own frame: the backdrop, the shadow, and the panel, with square corners at the
/// toolbar and round corners below.
void paintSheet(QWidget& sheet, const QPixmap& backdrop, const QRect& panel);
/// The same while it slides out from under the toolbar, with an image of its content.
void paintSlidingSheet(QWidget& overlay, const QPixmap& backdrop, const QRect& panel,
                       const QPixmap& content);

} // namespace frimbolate::style
