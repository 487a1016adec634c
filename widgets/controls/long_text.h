// Texts too long to be laid out. A file may hold a line of a million characters, and laying out all
// of it would take many seconds; no screen shows more than its beginning.
#pragma once

#include <QString>

namespace frimbolate {

/// The most characters (UTF-16 units) of a label, a tool tip or a description.
constexpr qsizetype longestLabel = 1024;
/// The most characters of one line that is edited; longer than any path that a system opens.
constexpr qsizetype longestLine = 4096;

/// The text, or where it is longer than a label may be as much of it, with "…" for what is left
/// out: in the middle or at the end.
QString labelText(const QString& text, Qt::TextElideMode mode = Qt::ElideMiddle);

/// The beginning of a line that is laid out; does not part a pair of surrogates.
qsizetype lengthLaidOut(QStringView line);

/// What a field of one line shows for a text: all of it, or its beginning and a sign for the rest.
/// The rest is kept for the sign, however the field is edited and wherever the sign is moved to, so
/// that nothing is lost that the user has not deleted.
class AbbreviatedText {
  public:
    /// The text to show; forgets the rest of an earlier one.
    QString abbreviate(const QString& whole);
    /// The text that is meant by what a field shows now.
    QString expand(const QString& shown) const;

  private:
    QString rest_; ///< empty where the text is shown whole
    QChar sign_;
};

} // namespace frimbolate
