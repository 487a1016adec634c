// The colours of a shown property list: keys, texts, numbers and markup.
#pragma once

#include <QSyntaxHighlighter>

class QPalette;

namespace frimbolate::style {

/// Colours a document that holds an XML property list as the program writes it: one tag or one
/// value with its tags per line, texts of several lines, and no "<" within a value.
class PropertyListHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    PropertyListHighlighter(QTextDocument* document, const QPalette& palette);

    /// Takes the colours that match a palette.
    void setPalette(const QPalette& palette);

  protected:
    void highlightBlock(const QString& line) override;

  private:
    QColor markup_, key_, text_, number_;
};

} // namespace frimbolate::style
