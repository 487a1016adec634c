// The painting of the pages' switcher, of their bars and buttons, and of the list of agents beside
// its rows. Lengths scale with the user's font, colours follow the widget's palette.
#pragma once

class QAbstractButton;
class QToolButton;
class QWidget;

namespace frimbolate::style {

/// The box around the segments of the switcher.
void paintSwitcher(QWidget& switcher);
/// A segment: its icon, on a background by state.
void paintSegment(QAbstractButton& segment);

/// The heights of a page's header and of the strip that reports a fault, without their lines;
/// pixels of the 1x layout.
constexpr int pageHeaderHeight = 38, faultStripHeight = 34;
/// The card of the property list, with a line below its header and one above the strip.
void paintPropertyListPage(QWidget& page, bool hasStrip, bool hasFocus);

/// The height of the bar below the list of agents, its line included; pixels of the 1x layout.
constexpr int agentBarHeight = 30;
/// The sign of a field that filters.
void paintSearchSign(QWidget& sign);
/// The card of the list of agents, with the bar below the list.
void paintAgentsPage(QWidget& page);
/// A button of that bar, or a caption that can be pressed, which has no icon: on a background by
/// state.
void paintFlatButton(QToolButton& button);
constexpr int flatButtonHeight = 26, flatButtonPadding = 8, flatButtonGap = 6; ///< as above
/// The side of the icons of segments and flat buttons; pixels of the 1x layout.
constexpr int pageIconSide = 16;

} // namespace frimbolate::style
