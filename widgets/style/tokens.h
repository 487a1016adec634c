// The colours of the program, one set for a light and one for a dark desktop.
//
// Every painted colour is one of these, so a test can check the contrast on this table. Widgets
// pass their own palette and so follow a change of the colour scheme at once.
#pragma once

#include <QColor>
#include <QPalette>

namespace frimbolate::style {

struct Tokens {
    // Surfaces
    QColor window;  ///< behind the card
    QColor surface; ///< card and sheet
    QColor raised;  ///< menu bar, menus, toolbar
    QColor sunken;  ///< drawer
    // Controls
    QColor field;  ///< text fields
    QColor button; ///< push buttons and pop-ups
    QColor hover;
    QColor pressed;
    // Lines
    QColor hairline;
    QColor controlBorder;
    QColor popOverBorder;
    // Texts
    QColor text;
    QColor secondaryText; ///< hints and captions
    QColor disabledText;
    // Default button, focus, checked, toggled and slider fill, and nothing else
    QColor accent;
    QColor accentHover;
    QColor onAccent;
    QColor accentSoft; ///< behind a toggled toolbar item
    // Faults
    QColor warnText;
    QColor faultyBorder;

    QColor scrim; ///< over the window while a sheet is up; translucent
};

const Tokens& tokens(bool dark);
/// The set that matches a palette, chosen by the lightness of its window colour.
const Tokens& tokens(const QPalette& palette);

QPalette palette(bool dark);

} // namespace frimbolate::style
