// Finds clipped content: texts wider than their widget, and widgets clipped by a parent.
#pragma once

#include <QStringList>

class QWidget;

namespace frimbolate::test {

/// A line for every visible widget in the tree, the root included, whose text or rectangle is cut
/// off. A text that is elided by design is listed only if its tool tip does not hold it whole.
QStringList cutOff(const QWidget& root);

} // namespace frimbolate::test
