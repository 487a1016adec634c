// Limits on the text that is laid out. A file may hold a line of a million characters; laying it
// out takes many seconds, and no screen shows more than its beginning.
#pragma once

#include <QString>

namespace frimbolate {

/// The most UTF-16 units of a label, a tool tip or a description.
constexpr qsizetype longestLabel = 1024;
/// The most UTF-16 units of an edited line; more than the longest path that a system can open.
constexpr qsizetype longestLine = 4096;

/// The text, shortened to longestLabel with "…" in the middle or at the end if it is longer.
QString labelText(const QString& text, Qt::TextElideMode mode = Qt::ElideMiddle);

/// How many UTF-16 units of a line are laid out; does not split a surrogate pair.
qsizetype lengthLaidOut(QStringView line);

/// What a one-line field shows for a text: all of it, or its beginning and a sign for the rest. The
/// sign keeps representing the rest while the user edits or moves it, so nothing is lost unless
/// the user deletes the sign.
class AbbreviatedText {
  public:
    /// The text to show. Discards the rest of the previous text.
    QString abbreviate(const QString& whole);
    /// The whole text represented by the field's current content.
    QString expand(const QString& shown) const;

  private:
    QString rest_; ///< empty if the text is shown whole
    QChar sign_;
};

} // namespace frimbolate
