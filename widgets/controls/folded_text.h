// A part of a text that a document stores but does not lay out: one object replacement character,
// drawn as a box with a caption.
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
    /// Draws every folded text of the document in the editor's font. The handler is a child of the
    /// editor, which must outlive the document's layout.
    static void install(QTextDocument& document, QWidget& editor);

    /// The format of the object replacement character that represents the text.
    static QTextCharFormat format(const QString& text);
    /// Whether this is the format of a folded text.
    static bool isFolded(const QTextCharFormat& format);
    /// The represented text; empty for any other format.
    static QString text(const QTextFormat& format);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    explicit FoldedText(QWidget& editor);

    QWidget& editor_;
};

} // namespace frimbolate
