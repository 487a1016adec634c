// A part of a text that a document keeps but does not lay out: one character of it, drawn as a
// plate with words.
#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextCharFormat;
class QTextDocument;

namespace frimbolate {

class FoldedText : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

  public:
    /// Draws every folded text of the document in the editor's font, for as long as the editor
    /// lives.
    static void install(QTextDocument& document, QWidget& editor);

    /// Of the object replacement character that stands for the text.
    static QTextCharFormat format(const QString& text);
    /// Whether this is the format of a folded text.
    static bool isFolded(const QTextCharFormat& format);
    static QString text(const QTextFormat& format);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    explicit FoldedText(QWidget& editor);

    QWidget& editor_;
};

} // namespace frimbolate
