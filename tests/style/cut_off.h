// Finds what a person cannot read or reach whole: texts wider than their place, controls that
// their surroundings cut off.
#pragma once

#include <QStringList>

class QWidget;

namespace frimbolate::test {

/// A line for every visible widget in the tree whose text or rectangle is cut off, the root
/// included. Texts that are elided by design have their whole in a tool tip; without one they are
/// told too.
QStringList cutOff(const QWidget& root);

} // namespace frimbolate::test
